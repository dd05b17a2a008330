#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace voltmere {

/// Source file, relative to the project's root, to the headers that its #include lines name.
using IncludeGraph = std::map<std::string, std::vector<std::string>>;

/// The headers that the #include lines of one file's text name.
std::vector<std::string> includesIn(std::string_view text);

/// Reads every source file of the rooms below `root`.
IncludeGraph readIncludeGraph(const std::string& root);

/// One line for each #include that its file's room is not allowed, "a.h includes b.h".
std::vector<std::string> forbiddenIncludes(const IncludeGraph& graph);

/// The files of a circle of includes, in order; empty when there is none.
std::vector<std::string> findCircle(const IncludeGraph& graph);

} // namespace voltmere
