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

/// Closes `window` on a click outside of it and of the bars, which reaches no other window. The
/// window stands in a layer and is shown after this call. sway leaves the keyboard to a window in a
/// layer, so the end of its focus does not tell.
void closeOnClickElsewhere(QWidget& window);

} // namespace voltmere
