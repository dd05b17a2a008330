#pragma once

#include "reference/registry_reference.h"

namespace voltmere::reference {

/// The names in the profiler's report by address, following the rules line by line.
Names namesInReport(const std::string& text);

} // namespace voltmere::reference
