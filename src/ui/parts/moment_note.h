#pragma once

// MomentNote: words said for a moment beside the place that they are about, over whatever stands there. It takes
// neither the keyboard nor the mouse, so that typing goes on; what is to be read longer stands in a line of the page.

#include <QLabel>
#include <QTimer>

namespace ui {

class MomentNote : public QLabel {
    Q_OBJECT
public:
    /// Becomes a child of the page, and stays within it.
    explicit MomentNote(QWidget& page);

    /// Says the words above the place in the widget, or below it where there is no room above or the keyboard is there.
    /// The same words again, as long as nothing else was said, are said no second time; none puts the note out of
    /// sight.
    void say(const QString& words, const QWidget& beside, QRect place);
    void say(const QString& words, const QWidget& beside) { say(words, beside, beside.rect()); }

private:
    QRect box_in_hand() const;
    void lay(QRect beside);

    QString m_said;
    QTimer m_moment;
};

} // namespace ui
