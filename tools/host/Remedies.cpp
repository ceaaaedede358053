#include "Remedies.h"

namespace host {

namespace {

Remedies& used()
{
    static Remedies texts;
    return texts;
}

} // namespace

void useRemedies(const Remedies& remedies) { used() = remedies; }

const Remedies& remedies() { return used(); }

} // namespace host
