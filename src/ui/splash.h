#pragma once

// What is shown during start-up: the picture, unless this is a tailored installation, and the version.

#include "frame/button.h"
#include "frame/startup.h"

#include <QPixmap>
#include <QWidget>

class QLabel;

namespace ui {

class Splash : public QWidget {
    Q_OBJECT
public:
    explicit Splash(const base::Settings& settings);

    /// Takes over what the form shows. Throws platform::FileError if the picture isn't there.
    void refresh(const frame::stg& form);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const base::Settings& m_settings;
    QPixmap m_Image1;
    QLabel* m_Label1;
};

} // namespace ui
