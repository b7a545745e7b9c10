#pragma once

#include <QIconEngine>
#include <QPalette>

#include <string>

namespace corvane::drawing {

class SymbolImages;

/// Draws a symbol when and in the size it is asked for: most icons are never looked at.
class SymbolIcon : public QIconEngine {
  public:
    struct Colours {
        QColor normal;
        QColor disabled;
        /// Under the pointer or selected.
        QColor active;
    };

    /// The images outlive the icon, which has such a symbol.
    SymbolIcon(SymbolImages &images, std::string name, const Colours &colours);

    void paint(QPainter *painter, const QRect &rectangle, QIcon::Mode mode,
               QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine *clone() const override;
    bool isNull() override { return false; }

  private:
    const QColor &colour(QIcon::Mode mode) const;

    SymbolImages &images_;
    const std::string name_;
    const Colours colours_;
};

} // namespace corvane::drawing
