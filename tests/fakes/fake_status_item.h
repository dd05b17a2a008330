#pragma once

#include "platform/status_item.h"

#include <utility>
#include <vector>

namespace voltmere {

/// A menu bar that keeps what it is shown, in a log that outlives the item.
class FakeStatusItem : public StatusItem {
public:
    struct Log {
        std::vector<StatusItemPicture> pictures;
        std::string description;
        std::function<void(const ScreenRectangle& place)> click;
    };

    explicit FakeStatusItem(Log& log)
        : log(log)
    {
    }

    void setPicture(const StatusItemPicture& picture) override { log.pictures.push_back(picture); }
    void setDescription(const std::string& text) override { log.description = text; }

    void onClick(std::function<void(const ScreenRectangle& place)> action) override
    {
        log.click = std::move(action);
    }

private:
    Log& log;
};

} // namespace voltmere
