#include "house/include_graph.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <regex>
#include <set>
#include <sstream>

namespace voltmere {

namespace {

namespace fs = std::filesystem;

const std::vector<std::string> rooms{"app",    "model",    "devices", "alerting",
                                     "snooze", "platform", "texts",   "ui"};

/// The rule that a file falls under. More than its folder, since the windows of the reminder and
/// the texts that everyone needs have rules of their own.
std::string roomOf(const std::string& file)
{
    const fs::path path(file);
    if (path.begin()->string() == "texts") {
        return "texts";
    }
    if (file.starts_with("model/l10n") || file.starts_with("model/app_language")) {
        return "leaf";
    }
    if (file.starts_with("snooze/window/")) {
        return "window";
    }
    if (path.parent_path() == "platform") {
        return "port";
    }
    return path.begin()->string();
}

const std::set<std::string> core{"port", "leaf", "devices", "alerting", "snooze", "model"};

/// The rooms whose headers a room may include, its own not named.
const std::map<std::string, std::set<std::string>> allowedRooms{
    {"texts", {}},
    {"port", {}},
    {"leaf", {"port"}},
    {"devices", {"port"}},
    {"alerting", {"port", "leaf", "devices", "snooze"}},
    {"snooze", {"port", "leaf", "devices"}},
    {"model", core},
    {"ui", {"port", "leaf", "devices", "alerting", "snooze", "model", "window"}},
    {"window", {"port", "leaf", "devices", "alerting", "snooze", "model", "ui"}},
    {"platform", {"port"}},
};

const std::set<std::string> roomsWithQt{"ui", "window", "platform", "app"};

bool isQt(const std::string& header)
{
    return header.size() > 1 && header.starts_with('Q') &&
        (header.starts_with("Qt") || (header[1] >= 'A' && header[1] <= 'Z'));
}

bool isOfProject(const std::string& header)
{
    return std::any_of(rooms.begin(), rooms.end(), [&header](const std::string& room) {
        return header.starts_with(room + '/');
    });
}

bool mayInclude(const std::string& file, const std::string& header)
{
    const std::string room = roomOf(file);
    if (isQt(header)) {
        return roomsWithQt.contains(room);
    }
    if (room == "app" || !isOfProject(header) || roomOf(header) == room ||
        roomOf(header) == "texts") {
        return true;
    }
    return allowedRooms.at(room).contains(roomOf(header));
}

} // namespace

std::vector<std::string> includesIn(std::string_view text)
{
    static const std::regex directive(R"(^\s*#\s*(?:include|import)\s*[<"]([^">]+)[">])");
    std::vector<std::string> headers;
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) {
        std::smatch match;
        if (std::regex_search(line, match, directive)) {
            headers.push_back(match[1]);
        }
    }
    return headers;
}

IncludeGraph readIncludeGraph(const std::string& root)
{
    static const std::set<std::string> endings{".h", ".cpp", ".mm"};
    IncludeGraph graph;
    for (const std::string& room : rooms) {
        for (const auto& entry : fs::recursive_directory_iterator(fs::path(root) / room)) {
            if (endings.contains(entry.path().extension().string())) {
                std::ifstream file(entry.path());
                const std::string text(std::istreambuf_iterator<char>(file), {});
                graph[fs::relative(entry.path(), root).string()] = includesIn(text);
            }
        }
    }
    return graph;
}

std::vector<std::string> forbiddenIncludes(const IncludeGraph& graph)
{
    std::vector<std::string> forbidden;
    for (const auto& [file, headers] : graph) {
        for (const std::string& header : headers) {
            if (!mayInclude(file, header)) {
                forbidden.push_back(file + " includes " + header);
            }
        }
    }
    return forbidden;
}

std::vector<std::string> findCircle(const IncludeGraph& graph)
{
    std::set<std::string> finished;
    std::vector<std::string> path;
    const std::function<bool(const std::string&)> closesCircle = [&](const std::string& file) {
        const auto earlier = std::find(path.begin(), path.end(), file);
        if (earlier != path.end()) {
            path.erase(path.begin(), earlier);
            return true;
        }
        const auto node = graph.find(file);
        if (node == graph.end() || finished.contains(file)) {
            return false;
        }
        path.push_back(file);
        if (std::any_of(node->second.begin(), node->second.end(), closesCircle)) {
            return true;
        }
        path.pop_back();
        finished.insert(file);
        return false;
    };
    for (const auto& [file, headers] : graph) {
        if (closesCircle(file)) {
            return path;
        }
    }
    return {};
}

} // namespace voltmere
