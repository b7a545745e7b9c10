#pragma once

#include <QString>
#include <QVariantMap>

#include <vector>

namespace corvane::desktop {

/// A line of a menu.
struct ItemMenuLine {
    int id = 0;
    /// 0 for the lines of the menu itself.
    int depth = 0;
    QVariantMap properties;

    QString label() const;
};

/// The menu of a status item as a panel reads it over com.canonical.dbusmenu.
class ItemMenu {
  public:
    /// `service` is the connection of the item.
    explicit ItemMenu(QString service);

    /// All lines from top to bottom, submenus after their own line; none when the item does not
    /// answer.
    std::vector<ItemMenuLine> lines() const;

    /// As a click on the line; false when the item refuses.
    bool choose(int id) const;

  private:
    QString service_;
    QString path_;
};

} // namespace corvane::desktop
