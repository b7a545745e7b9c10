#pragma once

#include <QApplication>
#include <QFont>
#include <QImage>
#include <QPalette>

namespace corvane::contract {

/// Restores how the program looks.
class Look {
  public:
    Look() = default;
    Look(const Look &) = delete;
    Look &operator=(const Look &) = delete;
    ~Look() {
        QApplication::setPalette(palette_);
        QApplication::setFont(font_);
    }

  private:
    const QPalette palette_ = QApplication::palette();
    const QFont font_ = QApplication::font();
};

/// The lightness of the lightest and of the darkest colour of a picture, from 0 to 255.
int lightest(const QImage &image);
int darkest(QImage image);

} // namespace corvane::contract
