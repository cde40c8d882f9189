#pragma once

// What the colours of the overview's cells mean, in one line.

#include <QWidget>

namespace ui {

class LegendLine : public QWidget {
    Q_OBJECT
public:
    explicit LegendLine(QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int width_of(const QString& caption) const;
};

} // namespace ui
