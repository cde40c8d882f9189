#pragma once

// Roads, as the rows of text files: what a person does at the windows, and what must be seen then.
//
//   [name]               begins a road
//   act word | word      a step; Walker::acts tells what there is
//       word | word      an indented line belongs to the step above it
//   # ...                says something to the reader

#include <QList>
#include <QString>
#include <QStringList>
#include <stdexcept>

namespace e2e {

/// Something on the road isn't as it must be; the text says what.
struct RoadError : std::runtime_error {
    explicit RoadError(const QString& text) : std::runtime_error(text.toStdString()) {}
};

/// Throws a RoadError unless the condition holds.
void demand(bool condition, const QString& what);

struct Step {
    QString place; ///< file and line
    QString act;
    QStringList words;
    QList<QStringList> lines;

    /// Empty where the row has fewer words.
    QString word(int at) const { return words.value(at); }
};

/// The steps of a road. In them $1 stands for the first of the arguments, and so on.
QList<Step> steps_of(const QString& road, const QStringList& arguments);

} // namespace e2e
