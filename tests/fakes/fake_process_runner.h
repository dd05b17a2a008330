#pragma once

#include "ports/peripherals.h"

#include <map>
#include <vector>

namespace voltmere {

/// Answers each executable with a prepared output and keeps the requests.
class FakeProcessRunner : public ProcessRunner {
public:
    std::string run(const ProcessRequest& request) override
    {
        requests.push_back(request);
        const auto output = outputs.find(request.executable);
        return output == outputs.end() ? std::string() : output->second;
    }

    bool isExecutable(const std::string& path) const override { return outputs.contains(path); }

    std::map<std::string, std::string> outputs; ///< by executable; a missing one cannot be started
    std::vector<ProcessRequest> requests;
};

} // namespace voltmere
