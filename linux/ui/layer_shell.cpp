#include "linux/ui/layer_shell.h"

#include "linux/ui/panel_controller.h"

#include <LayerShellQt/Window>
#include <QGuiApplication>
#include <QWidget>

#include <wayland-client.h>

#include <cstdint>
#include <memory>
#include <string_view>

namespace voltmere {

namespace {

/// LayerShellQt warns where the protocol is missing, so the compositor is asked beforehand.
bool compositorHasLayers()
{
    const std::unique_ptr<wl_display, decltype(&wl_display_disconnect)> display(
        wl_display_connect(nullptr), &wl_display_disconnect);
    if (!display) {
        return false;
    }
    bool found = false;
    const wl_registry_listener listener{
        [](void* answer, wl_registry* /*registry*/, std::uint32_t /*name*/, const char* interface,
           std::uint32_t /*version*/) {
            if (std::string_view(interface) == "zwlr_layer_shell_v1") {
                *static_cast<bool*>(answer) = true;
            }
        },
        [](void* /*answer*/, wl_registry* /*registry*/, std::uint32_t /*name*/) {}};
    const std::unique_ptr<wl_registry, decltype(&wl_registry_destroy)> registry(
        wl_display_get_registry(display.get()), &wl_registry_destroy);
    wl_registry_add_listener(registry.get(), &listener, &found);
    wl_display_roundtrip(display.get());
    return found;
}

using Layer = LayerShellQt::Window;

/// Covers all other windows, unseen, and closes its parent on a click.
class Ground : public QWidget {
public:
    explicit Ground(QWidget& panel)
        : QWidget(&panel, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus)
    {
        setAttribute(Qt::WA_TranslucentBackground);
        setAttribute(Qt::WA_ShowWithoutActivating);
        winId(); // makes its QWindow
        Layer& layer = *Layer::get(windowHandle());
        layer.setAnchors(
            {Layer::AnchorTop, Layer::AnchorBottom, Layer::AnchorLeft, Layer::AnchorRight});
        layer.setLayer(Layer::LayerTop);
        layer.setKeyboardInteractivity(Layer::KeyboardInteractivityNone);
        layer.setScreenConfiguration(Layer::ScreenFromCompositor);
        layer.setScope("voltmere");
    }

protected:
    void mousePressEvent(QMouseEvent* /*event*/) override { parentWidget()->close(); }
};

} // namespace

bool standInLayer(QWidget& window, Qt::Edges edges)
{
    static const bool possible =
        QGuiApplication::platformName().startsWith("wayland") && compositorHasLayers();
    if (!possible) {
        return false;
    }
    window.setWindowFlags(window.windowType() | Qt::FramelessWindowHint); // a button would undo it
    window.winId();                                                       // makes its QWindow
    Layer& layer = *Layer::get(window.windowHandle());
    Layer::Anchors anchors = Layer::AnchorNone;
    anchors.setFlag(Layer::AnchorTop, edges.testFlag(Qt::TopEdge));
    anchors.setFlag(Layer::AnchorBottom, edges.testFlag(Qt::BottomEdge));
    anchors.setFlag(Layer::AnchorLeft, edges.testFlag(Qt::LeftEdge));
    anchors.setFlag(Layer::AnchorRight, edges.testFlag(Qt::RightEdge));
    layer.setAnchors(anchors);
    layer.setMargins({panelGap, panelGap, panelGap, panelGap});
    layer.setLayer(Layer::LayerTop);
    layer.setKeyboardInteractivity(Layer::KeyboardInteractivityOnDemand);
    layer.setScreenConfiguration(Layer::ScreenFromCompositor);
    layer.setScope("voltmere");
    return true;
}

void closeOnClickElsewhere(QWidget& window)
{
    (new Ground(window))->show();
}

} // namespace voltmere
