#pragma once

namespace vxroi {

/// The default number of pictures that are processed at a time: one for each core.
int defaultWorkerCount();

/// Starts the threads of Qt's global pool, which process pictures; Qt also uses the pool to convert and scale large
/// images. They are started now and never expire, because Qt would wait for ever for a thread that the system refuses
/// later.
/// \param most the number of workers, at least 1; fewer are started when the system allows no more.
/// \throws host::HostError when the system refuses even the threads of one worker.
void startWorkerThreads(int most = defaultWorkerCount());

} // namespace vxroi
