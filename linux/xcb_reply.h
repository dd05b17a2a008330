#pragma once

#include <cstdlib>
#include <memory>

namespace voltmere {

/// Owns a reply of the X server, which XCB allocates and its caller frees.
template<typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply)
{
    return {reply, &std::free};
}

} // namespace voltmere
