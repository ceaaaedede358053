#pragma once

#include "Options.h"
#include "host/OutputName.h"

#include <QSet>

#include <optional>

namespace vxroi {

/// One input of a run, and what its line of a list says of it.
struct Input {
    QString path;
    QVector<host::CropShape> shapes = {}; ///< empty: those of the run
    std::optional<host::Constraints> constraints = std::nullopt; ///< none: those of the run
    QString map = {}; ///< empty: that of the run
    QString output = {}; ///< empty: that of the run
    std::optional<host::HostError> failure = std::nullopt; ///< why there is nothing to crop
};

/// Makes the tasks of a run out of its inputs, one after the other: they know their outputs before
/// any is begun, so that what becomes of them does not depend on which is done first.
class TaskPlan {
public:
    /// \throws host::HostError when the options are wrong, or ask for no crop.
    /// \param mayListsLeave whether outputs that lists name may lie outside the current folder.
    explicit TaskPlan(
        const CropOptions& options, bool needsShapes = true, bool mayListsLeave = false);

    const QVector<host::CropShape>& shapes() const { return commonShapes; }

    /// The task of an input; a failure is in it, and never thrown.
    host::CropTask plan(const Input& input);

    /// Plans and crops.
    host::CropRecord crop(host::Cropper& cropper, const Input& input);

private:
    void addOutputs(const Input& input, host::CropTask& task);

    QVector<host::CropShape> commonShapes;
    host::Constraints commonConstraints;
    std::optional<host::OutputName> commonMap;
    std::optional<host::OutputName> commonOutput;
    QString suffix; ///< of outputs; empty: as their names say
    bool areListsConfined;
    QSet<QString> usedOutputs;
};

} // namespace vxroi
