#pragma once

#include "host/files/OutputName.h"
#include "vxroi/options/CropOptions.h"

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
    QString request = {}; ///< a hash of what its line says besides the path; empty: nothing
    QByteArray entry = {}; ///< as its list has it; empty: it is from no list
    QString place = {}; ///< where it stands in a list, for people; empty: in none
};

/// A task, and what a run must know of it beside.
struct PlannedTask {
    host::CropTask task;
    QStringList files; ///< its outputs by their canonical paths
    QString place; ///< of its input in a list, for people; empty: in none
};

/// Makes the tasks of a run out of its inputs.
class TaskPlan {
public:
    /// \param mayListsLeave whether outputs that lists name may lie outside the current folder.
    /// \throws host::HostError when the options are wrong.
    TaskPlan(
        const CropOptions& options, const AnalysisOptions& analysis, bool mayListsLeave = false);

    const QVector<host::CropShape>& shapes() const { return commonShapes; }

    /// \throws host::HostError when the options ask for no crop.
    void requireShapes() const;

    /// The task of an input; a failure is in it, and never thrown.
    PlannedTask plan(const Input& input) const;

private:
    void addOutputs(const Input& input, PlannedTask& planned) const;

    QVector<host::CropShape> commonShapes;
    host::Constraints commonConstraints;
    std::optional<host::OutputName> commonMap;
    std::optional<host::OutputName> commonOutput;
    QString suffix; ///< of outputs; empty: as their names say
    QString request;
    bool areListsConfined;
};

/// The output files of a run, each of which belongs to one task.
class OutputClaims {
public:
    /// Claims the outputs of a task; where one belongs to another task, this one fails.
    void claim(PlannedTask& planned);

    bool areFree(const PlannedTask& planned) const;
    void release(const QStringList& files);

private:
    QSet<QString> claimed;
};

} // namespace vxroi
