#pragma once

#include <QtGlobal>

// The macros of Qt's that do this declare functions, which must stand in no namespace.
inline void removePicturesOfTheProgram()
{
    Q_CLEANUP_RESOURCE(icons);
}

inline void returnPicturesOfTheProgram()
{
    Q_INIT_RESOURCE(icons);
}

namespace voltmere {

/// Takes the application icon and the icon of the menu bar out of the program for one test.
class WithoutPictures {
public:
    WithoutPictures() { removePicturesOfTheProgram(); }
    ~WithoutPictures() { returnPicturesOfTheProgram(); }

    WithoutPictures(const WithoutPictures&) = delete;
    WithoutPictures& operator=(const WithoutPictures&) = delete;
};

} // namespace voltmere
