#pragma once

// A button that is a bitmap: one picture at rest, another while it is pressed. The bitmaps are drawn at twice the size
// they are shown at, so that they are sharp at 200 % and smooth at 100 %. A click doesn't take the focus away from the
// cell in hand; by keyboard the button is reached with Tab, shows that it is, and is pressed with Space or Enter.

#include "frame/button.h"

#include <QAbstractButton>
#include <QPixmap>

namespace ui {

class PictureButton : public QAbstractButton {
    Q_OBJECT
public:
    /// `folder` ends in "/". Throws platform::FileError if a picture isn't there. The pressed one is read when the
    /// button is first pressed: most never are.
    PictureButton(const QString& folder, const frame::Button& button, QWidget* parent = nullptr);
    PictureButton(const QString& folder, const QString& up, const QString& pressed, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const QPixmap& pressed_picture();

    QPixmap m_up;
    QString m_pressed_path;
    QPixmap m_pressed; ///< null until it was needed
};

/// A picture that is drawn at twice its size on the screen. Throws platform::FileError if it isn't there.
QPixmap load_picture(const QString& path);

} // namespace ui
