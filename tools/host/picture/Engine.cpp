#include "Engine.h"

#include "Formats.h"
#include "ImageMemory.h"
#include "host/HostError.h"
#include "host/StandardStreams.h"

#include <cstdlib>
#include <mutex>
#include <new>
#include <string>

namespace host {

namespace {

// Discards warnings: errors of libvips say what matters. GLib ends the program when even a small allocation fails, and
// logs that here first.
void handleMessage(
    const char* /*domain*/, GLogLevelFlags level, const char* /*message*/, void* /*data*/)
{
    if ((level & G_LOG_LEVEL_ERROR) == 0)
        return;
    writeMessage(noMemory);
    std::_Exit(static_cast<int>(ExitCode::Internal));
}

void start()
{
    g_log_set_default_handler(handleMessage, nullptr);
    if (vips_init("vxroi") != 0)
        throw HostError(ExitCode::Internal, QStringLiteral("libvips"),
            QStringLiteral("cannot be started"), QStringLiteral("check how it is installed"));
    vips_concurrency_set(1);
    vips_cache_set_max(0);
    vips_operation_block_set("VipsForeignLoad", TRUE);
    for (const Format& format : formats()) {
        if (format.loader != nullptr)
            vips_operation_block_set(format.loader, FALSE);
    }
}

} // namespace

void startEngine()
{
    static std::once_flag started;
    std::call_once(started, start);
    vips_error_clear();
}

void throwIfOutOfResources(const vips::VError& error)
{
    constexpr std::size_t fewBytes = std::size_t { 64 } << 20U;
    const std::string text = error.what();
    // Decoders report lack of memory in many different words; a failing allocation tells it reliably.
    if (text.find("vips_tracked:") != std::string::npos || !isMemoryLeft(fewBytes))
        throw std::bad_alloc();
    if (text.find("glib:") != std::string::npos)
        throw threadsRefused();
}

} // namespace host
