#include "reference/profiler_reference.h"

#include "reference/reference_text.h"

namespace voltmere::reference {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

std::string trimmed(std::string text)
{
    while (!text.empty() && isBlank(text.front())) {
        text = text.substr(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text = text.substr(0, text.size() - 1);
    }
    return text;
}

bool beginsWith(const std::string& text, const std::string& beginning)
{
    return text.substr(0, beginning.size()) == beginning;
}

bool isHeading(const std::string& line)
{
    const std::string content = trimmed(line);
    return beginsWith(line, std::string(10, ' ')) && !beginsWith(line, std::string(11, ' ')) &&
        !content.empty() && content.back() == ':';
}

} // namespace

Names namesInReport(const std::string& text)
{
    Names names;
    if (!decoded(text)) {
        return names;
    }
    std::optional<std::string> pending;
    for (const std::string& line : split(text, "\n")) {
        const std::string content = trimmed(line);
        if (isHeading(line)) {
            pending = content.substr(0, content.size() - 1);
        } else if (pending && beginsWith(content, "Address:")) {
            names[inUpperCase(trimmed(content.substr(8)))] = *pending;
            pending.reset();
        }
    }
    return names;
}

} // namespace voltmere::reference
