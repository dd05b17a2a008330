#pragma once

#include <memory>

class QApplication;

namespace voltmere {

/// Makes the application of Qt that windows need. Where Qt finds no display, or no plugin for it,
/// the process ends with one line on standard error and `exitStatus::cannotRun`: by itself Qt would
/// abort. `argc` must outlive the application.
std::unique_ptr<QApplication> startQt(int& argc, char** argv);

} // namespace voltmere
