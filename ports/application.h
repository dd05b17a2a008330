#pragma once

namespace voltmere {

/// The program as the desktop sees it.
class Application {
public:
    virtual ~Application() = default;

    /// Brings the program to the front, with its open window if there is one.
    virtual void activate() = 0;
};

} // namespace voltmere
