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

/// Each of these may include those before it.
const std::vector<std::string> portable{"ports",    "texts", "devices", "snooze",
                                        "alerting", "model", "ui",      "app"};

const std::vector<std::string> systems{"linux", "macos"};

std::string roomOf(const std::string& path)
{
    return path.substr(0, path.find('/'));
}

bool isOneOf(const std::vector<std::string>& rooms, const std::string& room)
{
    return std::find(rooms.begin(), rooms.end(), room) != rooms.end();
}

bool isQt(const std::string& header)
{
    return header.size() > 1 && header.starts_with('Q') &&
        (header.starts_with("Qt") || (header[1] >= 'A' && header[1] <= 'Z'));
}

bool isApples(const std::string& header)
{
    static const std::set<std::string> frameworks{
        "AppKit",     "CoreFoundation",    "CoreGraphics",
        "Foundation", "ServiceManagement", "UserNotifications"};
    return frameworks.contains(roomOf(header));
}

bool mayInclude(const std::string& file, const std::string& header)
{
    const std::string room = roomOf(file);
    const std::string other = roomOf(header);
    if (isQt(header)) {
        return room == "linux";
    }
    if (isApples(header)) {
        return room == "macos";
    }
    if (room == other ||
        (!isOneOf(portable, other) && !isOneOf(systems, other) && other != "posix")) {
        return true;
    }
    if (isOneOf(systems, room)) {
        return !isOneOf(systems, other);
    }
    if (isOneOf(systems, other)) {
        return false;
    }
    if (room == "posix") {
        return other == "ports" || other == "texts";
    }
    if (other == "posix") {
        return room == "app";
    }
    return std::find(portable.begin(), portable.end(), other) <
        std::find(portable.begin(), portable.end(), room);
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
    std::vector<std::string> rooms = portable;
    rooms.insert(rooms.end(), systems.begin(), systems.end());
    rooms.emplace_back("posix");
    for (const std::string& room : rooms) {
        if (!fs::exists(fs::path(root) / room)) {
            continue;
        }
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
