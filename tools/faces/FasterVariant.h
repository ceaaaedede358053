#pragma once

namespace faces {

/// Goes on as the variant of this program that is compiled for this processor, if there is one; returns otherwise.
void becomeFasterVariant(char** argv);

} // namespace faces
