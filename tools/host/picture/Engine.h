#pragma once

#include <vips/vips8>

namespace host {

/// Starts libvips, the engine that decodes, converts and encodes pictures: once, which takes some 30 ms.
/// It runs in the caller's thread as far as it can, keeps nothing that it has computed, and reads no formats
/// but those of formats().
/// \throws HostError when it cannot be started.
void startEngine();

/// Throws what an error of the engine stands for when it is no fault of the picture; returns otherwise.
/// \throws std::bad_alloc when memory has run out.
/// \throws HostError when the system refuses threads.
void refuseLackOfMeans(const vips::VError& error);

} // namespace host
