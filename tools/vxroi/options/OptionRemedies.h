#pragma once

namespace vxroi {

/// Lets messages name the options that help.
void useOptionRemedies();

} // namespace vxroi
