#pragma once

#include "host/detector/FaceDetector.h"

#include <QString>

#include <memory>
#include <string>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace vxroi {

/// The options for finding faces.
struct FaceOptions {
    bool faces = false; ///< with the program vxroi-faces
    std::string command; ///< with this command of the shell; empty: with no other program
    bool isRequired = false; ///< whether a picture fails when its faces are not known

    /// Adds the options to \a app.
    /// \param needed an option without which they have no effect; null: none.
    void addTo(CLI::App& app, CLI::Option* needed = nullptr);

    /// The detector; null when none is wanted.
    /// \throws host::HostError when it is not installed.
    std::shared_ptr<host::FaceDetector> detector() const;

    /// What finds faces, for the hash of a request; empty when nothing does.
    QString name() const;
};

} // namespace vxroi
