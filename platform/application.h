#pragma once

namespace voltmere {

/// The program as the desktop sees it.
class Application {
public:
    virtual ~Application() = default;

    /// Brings the program's open window to the front, over other programs' windows. Without an open
    /// window nothing happens.
    virtual void activate() = 0;
};

} // namespace voltmere
