#pragma once

#include "support/MenuEvent.h"

#include <QList>
#include <QString>
#include <QVariant>

#include <array>
#include <cstdint>
#include <functional>
#include <limits>
#include <utility>

namespace corvane {

/// What a panel, or whoever is on the message bus, may call a menu with.
class ForeignMenuCalls {
  public:
    struct Call {
        QString method;
        QVariantList arguments;
    };
    /// Decides: a number from 0 up to the given end, without it. A source that has run dry says 0.
    using Choice = std::function<std::uint32_t(std::uint32_t end)>;

    explicit ForeignMenuCalls(Choice choice) : choice_(std::move(choice)) {}

    /// Most calls have arguments of the method's types.
    Call next() {
        Call call = fittingCall();
        if (choice_(5) == 0) {
            const auto place = choice_(static_cast<std::uint32_t>(call.arguments.size()));
            call.arguments[place] = anything();
        }
        return call;
    }

  private:
    Call fittingCall() {
        using namespace Qt::StringLiterals;
        switch (choice_(8)) {
        case 0:
            return {u"GetLayout"_s, {number(), number(), texts()}};
        case 1:
            return {u"GetGroupProperties"_s, {numbers(), texts()}};
        case 2:
            return {u"GetProperty"_s, {number(), text()}};
        case 3:
            return {u"Event"_s, {number(), text(), variant(), static_cast<uint>(number())}};
        case 4:
            return {u"EventGroup"_s, {events()}};
        case 5:
            return {u"AboutToShow"_s, {number()}};
        case 6:
            return {u"AboutToShowGroup"_s, {numbers()}};
        default:
            // One too many.
            return {u"EventGroup"_s, {anything(), anything()}};
        }
    }

    /// Those of a menu's lines and the ends of the range are frequent.
    int number() {
        switch (choice_(8)) {
        case 0:
            return std::numeric_limits<int>::min() + static_cast<int>(choice_(2));
        case 1:
            return std::numeric_limits<int>::max() - static_cast<int>(choice_(2));
        case 2: {
            const std::uint32_t high = choice_(256) << 24U;
            return static_cast<int>(high + choice_(256));
        }
        default:
            return static_cast<int>(choice_(24)) - 2;
        }
    }

    QString text() {
        using namespace Qt::StringLiterals;
        static const std::array known{u""_s,        u"clicked"_s, u"hovered"_s,
                                      u"opened"_s,  u"label"_s,   u"children-display"_s,
                                      u"enabled"_s, u"type"_s,    u"\U0001F5B1\n"_s};
        const std::uint32_t kind = choice_(16);
        if (kind < known.size()) {
            return known[kind];
        }
        return kind == known.size() ? QString(10000, u'x') : anyLetters();
    }

    /// Of whatever bytes, made text.
    QString anyLetters() {
        QByteArray bytes;
        for (auto count = choice_(32); count > 0; --count) {
            bytes += static_cast<char>(choice_(256));
        }
        return QString::fromUtf8(bytes);
    }

    template <typename Make>
    auto many(Make make) {
        QList<decltype(make())> list;
        for (auto count = choice_(6) == 0 ? choice_(300) : choice_(4); count > 0; --count) {
            list << make();
        }
        return list;
    }

    QVariant numbers() {
        return QVariant::fromValue(many([this] { return number(); }));
    }
    QVariant texts() {
        return many([this] { return text(); });
    }
    QVariant events() {
        return QVariant::fromValue(many([this] {
            return MenuEvent{.id = number(),
                             .name = text(),
                             .data = variant().value<QDBusVariant>(),
                             .time = static_cast<uint>(number())};
        }));
    }

    QVariant variant() {
        const auto kind = choice_(3);
        return QVariant::fromValue(QDBusVariant(kind == 0   ? QVariant(text())
                                                : kind == 1 ? texts()
                                                            : numbers()));
    }

    QVariant anything() {
        switch (choice_(6)) {
        case 0:
            return number();
        case 1:
            return text();
        case 2:
            return numbers();
        case 3:
            return texts();
        case 4:
            return events();
        default:
            return variant();
        }
    }

    Choice choice_;
};

} // namespace corvane
