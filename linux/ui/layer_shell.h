#pragma once

#include <Qt>

class QWidget;

namespace voltmere {

/// Puts `window`, which was never shown and has its final size, above ordinary windows and out of
/// the taskbar, without a frame, on the screen that is in use: beside the bars at `edges`, or in
/// the middle without edges. Returns false and does nothing where the desktop cannot do this: off
/// Wayland, where the compositor lacks the protocol (wlr-layer-shell-unstable-v1), or in a build
/// without LayerShellQt.
bool standInLayer(QWidget& window, Qt::Edges edges);

/// Closes `window`, which stands in a layer, on a click on the empty desktop. On sway such a click
/// leaves the keyboard to the window.
void closeOnDesktopClick(QWidget& window);

} // namespace voltmere
