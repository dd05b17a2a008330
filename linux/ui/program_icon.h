#pragma once

#include <QObject>
#include <QRect>

namespace voltmere {

/// The program's icon in the menu bar or tray, from construction to destruction.
class ProgramIcon : public QObject {
public:
    /// Where it is on the desktop; empty where that is not known.
    virtual QRect place() const = 0;
};

} // namespace voltmere
