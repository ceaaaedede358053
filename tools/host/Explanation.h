#pragma once

#include <QString>

namespace host {

/// A name that a user may write, and its meaning in a few words.
struct Explanation {
    QString name;
    QString text;
};

} // namespace host
