#pragma once

#include "Coprocess.h"

#include "host/records/Faces.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace host {

/// The faces of a picture, or why they are not known.
struct Detection {
    QVector<Face> faces;
    QString problem; ///< why they are not known, a warning about the picture; empty: they are known

    /// Reads an answer, or a line of a list: "faces" as facesFrom() reads them, or "error" with a reason.
    /// \return std::nullopt when \a object has neither.
    /// \throws std::invalid_argument when one of them is something else.
    static std::optional<Detection> in(const QJsonObject& object);
};

/// Finds faces in picture files with a program that answers lines: to {"path": "a.jpg"} it answers {"path": "a.jpg",
/// "faces": [...]}, or {"path": "a.jpg", "error": "why it cannot say"}. As many of them run as threads ask at the same
/// time. One object may be used from any number of threads.
class FaceDetector {
public:
    /// What happens to a picture whose faces are not known.
    enum class OnProblem { Warn, Fail };

    /// \param programAndArguments it is started when it is first needed.
    FaceDetector(QStringList programAndArguments, OnProblem whatToDo);

    /// A detector that is a command of the shell.
    static std::shared_ptr<FaceDetector> ofCommand(const QString& command, OnProblem onProblem);

    /// The program vxroi-faces, beside this program or in PATH.
    /// \throws HostError with ExitCode::Unavailable when it is not installed.
    static std::shared_ptr<FaceDetector> installed(OnProblem onProblem);

    /// Asks for the faces of the picture at \a path. A program that gives no valid answer is ended, and started again
    /// for the next picture; after three such failures in a row it is not asked any more.
    /// \param mostSeconds the time limit of the picture, half of which is for the answer.
    /// \throws HostError with ExitCode::Unavailable when they are not known and the detector is to fail then.
    Detection detect(const QString& path, int mostSeconds);

    /// \a detection if its faces are known or the detector is to warn only.
    /// \throws HostError as detect().
    Detection checked(const QString& path, Detection detection) const;

private:
    Detection ask(const QString& path, int mostSeconds);
    std::unique_ptr<Coprocess> takeIdle();
    void putBack(std::unique_ptr<Coprocess> process);

    QStringList arguments;
    OnProblem onProblem;
    std::atomic<int> failuresInARow = 0;
    std::mutex mutex;
    std::vector<std::unique_ptr<Coprocess>> idle;
};

} // namespace host
