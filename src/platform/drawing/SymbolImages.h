#pragma once

#include "presentation/Symbol.h"

#include <QByteArray>
#include <QColor>
#include <QHash>
#include <QIcon>
#include <QImage>
#include <QPalette>
#include <QPixmap>

#include <string>

namespace corvane::drawing {

/// The program's own drawings by symbol name, each in one colour. Main thread. What has been drawn
/// once is kept.
class SymbolImages {
  public:
    /// A square image with that many pixels on a side; null when there is no such symbol.
    QImage image(const std::string &name, const QColor &colour, int pixels,
                 FontWeight weight = FontWeight::regular);

    /// The same in points, sharp on a screen with that many pixels to the point.
    QPixmap pixmap(const std::string &name, const QColor &colour, int points, qreal ratio,
                   FontWeight weight = FontWeight::regular);

    /// In a colour of the palette, paler where it stands for something disabled, and in the colour
    /// of another role under the pointer or selected; null when there is no such symbol. The images
    /// outlive the icon, which has them drawn when it is shown.
    QIcon icon(const std::string &name, const QPalette &palette, QPalette::ColorRole role,
               QPalette::ColorRole activeRole);

  private:
    /// The drawing's source with strokes of that weight; empty when there is none.
    static QByteArray drawing(const std::string &name, FontWeight weight);

    QHash<QByteArray, QImage> images_;
};

} // namespace corvane::drawing
