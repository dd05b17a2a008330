#pragma once

#include <functional>
#include <string>
#include <vector>

namespace voltmere {

/// A picture for the menu bar, in its own colours.
struct StatusItemPicture {
    double width = 0;                 ///< points
    double height = 0;                ///< points
    std::vector<std::string> bitmaps; ///< the same picture as PNG files, in several densities
};

/// A rectangle on the desktop in points, from the top left corner of the first screen.
struct ScreenRectangle {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    bool operator==(const ScreenRectangle&) const = default;
};

/// The program's place in the menu bar. It is there from construction to destruction.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// Shows the picture at exactly its size and in its own colours.
    virtual void setPicture(const StatusItemPicture& picture) = 0;

    /// What a pointer at rest and a screen reader tell, as plain text.
    virtual void setDescription(const std::string& text) = 0;

    /// Calls `action` with the item's place at each click. One action; a new one replaces it.
    virtual void onClick(std::function<void(const ScreenRectangle& place)> action) = 0;
};

} // namespace voltmere
