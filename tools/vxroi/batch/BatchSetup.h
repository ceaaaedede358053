#pragma once

#include "BatchCommand.h"
#include "OwnOutputs.h"
#include "RecordFile.h"
#include "vxroi/inputs/Inputs.h"
#include "vxroi/inputs/Tasks.h"

#include <memory>
#include <optional>

/// \file
/// What a batch works with, made from its command line.

namespace vxroi {

/// The inputs of a batch.
/// \throws host::HostError when arguments contradict each other, or the folder or the list cannot be opened.
std::unique_ptr<Inputs> inputsOf(const BatchArguments& arguments);

/// The file of records; std::nullopt when records go to standard output.
std::optional<RecordFile> recordsOf(const BatchArguments& arguments);

/// The plan that makes tasks from inputs. \throws host::HostError when an option is wrong.
TaskPlan planOf(const BatchArguments& arguments);

/// The outputs of earlier runs; null without a file of records. \pre \a records outlives the result.
std::unique_ptr<OwnOutputs> ownOutputsOf(
    const BatchArguments& arguments, std::optional<RecordFile>& records);

/// The rules for cropping. \pre \a ownOutputs outlives the result.
host::CropRules rulesOf(
    const BatchArguments& arguments, const std::unique_ptr<OwnOutputs>& ownOutputs);

} // namespace vxroi
