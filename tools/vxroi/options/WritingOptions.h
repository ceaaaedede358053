#pragma once

#include "host/picture/WritingRules.h"

#include <QJsonObject>

namespace CLI {
class App;
}

namespace vxroi {

/// The options for writing pictures.
struct WritingOptions {
    host::WritingRules rules;

    /// Adds the options to \a command; parsing it sets the rules, or throws host::HostError when a value is wrong.
    void addTo(CLI::App& command);

    /// The value of {ext} in names of outputs; empty: the suffix of the picture.
    QString suffix() const;

    /// All options, for the hash of a request.
    QJsonObject toJson() const;
};

} // namespace vxroi
