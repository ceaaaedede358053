#pragma once

#include <vips/vips8>

namespace host {

/// Starts libvips, the engine that decodes, converts and encodes pictures, at the first call, which takes about 30 ms.
/// It is set up to work in the caller's thread as far as possible, to cache no results, and to read only the formats of
/// formats().
/// \throws HostError when libvips cannot be started.
void startEngine();

/// Throws when \a error is caused by a lack of memory or threads and not by the picture; returns otherwise.
/// \throws std::bad_alloc when memory has run out.
/// \throws HostError when the system refuses threads.
void throwIfOutOfResources(const vips::VError& error);

} // namespace host
