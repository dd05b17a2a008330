#pragma once

#include <QApplication>

#include <memory>

namespace voltmere {

/// Makes the application of Qt that windows need. Where Qt gives up, as without a plugin for the
/// display, the process ends with a line on standard error and `exitStatus::cannotRun`: by itself
/// Qt would abort. `argc` must outlive the application.
std::unique_ptr<QApplication> startQt(int& argc, char** argv);

} // namespace voltmere
