#pragma once

#include "host/files/OutputName.h"
#include "vxroi/options/CropOptions.h"

#include <QSet>

#include <optional>

namespace vxroi {

/// One input of a run, with the settings of its line in a list.
struct Input {
    QString path;
    QVector<host::CropShape> shapes = {}; ///< empty: those of the run
    std::optional<host::Constraints> constraints = std::nullopt; ///< nullopt: those of the run
    QString map = {}; ///< empty: that of the run
    QString output = {}; ///< empty: that of the run
    std::optional<host::Detection> detection = std::nullopt; ///< nullopt: faces are looked for
    std::optional<host::HostError> failure = std::nullopt; ///< why the input cannot be cropped
    QString request = {}; ///< a hash of the settings in its line; empty: there are none
    QByteArray entry = {}; ///< its entry in the list, unchanged; empty: it is not from a list
    QString place = {}; ///< its place in the list, for messages; empty: it is not from a list
};

/// A task, with what a run needs to keep track of it.
struct PlannedTask {
    host::CropTask task;
    QStringList files; ///< the canonical paths of its outputs
    QString place; ///< the place of its input in a list, for messages; empty: it is not from a list
};

/// Makes the tasks of a run from its inputs.
class TaskPlan {
public:
    /// \param allowOutside whether outputs named in lists may lie outside the current folder.
    /// \throws host::HostError when an option is wrong.
    TaskPlan(
        const CropOptions& options, const AnalysisOptions& analysis, bool allowOutside = false);

    const QVector<host::CropShape>& shapes() const { return commonShapes; }

    /// \throws host::HostError when the options name no shape.
    void requireShapes() const;

    /// The task for an input; a failure is stored in it and never thrown.
    PlannedTask plan(const Input& input) const;

private:
    void addOutputs(const Input& input, PlannedTask& planned) const;

    QVector<host::CropShape> commonShapes;
    host::Constraints commonConstraints;
    std::optional<host::OutputName> commonMap;
    std::optional<host::OutputName> commonOutput;
    QString suffix; ///< the value of {ext} in outputs; empty: the suffix of the picture
    QString request;
    bool areListsConfined;
};

/// Makes sure that each output file of a run belongs to only one task.
class OutputClaims {
public:
    /// Claims the outputs of a task; the task fails when another one already has any of them.
    void claim(PlannedTask& planned);

    /// Whether no other task has an output of this one.
    bool areFree(const PlannedTask& planned) const;

    /// Gives up the claim on \a files, which are canonical paths.
    void release(const QStringList& files);

private:
    QSet<QString> claimed;
};

} // namespace vxroi
