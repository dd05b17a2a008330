#pragma once

#include "macos/status_item.h"

#include <memory>

namespace voltmere {

/// The program's item in the menu bar of macOS. Qt's own tray icon would shrink the picture and
/// open a menu at a click.
class CocoaStatusItem : public StatusItem {
public:
    CocoaStatusItem();
    ~CocoaStatusItem() override;

    void setPicture(const StatusItemPicture& picture) override;
    void setDescription(const std::string& text) override;
    void onClick(std::function<void(const ScreenRectangle& place)> action) override;

private:
    struct Cocoa;
    std::unique_ptr<Cocoa> cocoa;
};

} // namespace voltmere
