#pragma once

namespace vxroi {

/// How many pictures are worked on at a time unless the user says: one for each core.
int defaultWorkerCount();

/// Starts the threads of Qt's global pool, where pictures are worked on, and where Qt converts and scales
/// large images in any case. They stay: Qt would wait for ever for one that the system refuses later.
/// \param most at least 1; fewer are started where the system refuses more.
/// \throws host::HostError where it refuses what one worker needs.
void startWorkerThreads(int most = defaultWorkerCount());

} // namespace vxroi
