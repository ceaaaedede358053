#pragma once

#include "host/picture/WritingRules.h"

#include <QJsonObject>

namespace CLI {
class App;
}

namespace vxroi {

/// The options of how pictures are written.
struct WritingOptions {
    host::WritingRules rules;

    /// Adds them to a command, whose parsing sets the rules, or throws host::HostError when one is wrong.
    void addTo(CLI::App& command);

    /// What {ext} stands for in names of outputs; empty: the suffix of the picture.
    QString suffix() const;

    /// All of them.
    QJsonObject toJson() const;
};

} // namespace vxroi
