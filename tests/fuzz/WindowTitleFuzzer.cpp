// The titles and class names that other programs give their windows, on their way to a menu.

#include "Fuzzing.h"
#include "platform/drawing/DisplayText.h"
#include "platform/drawing/MenuText.h"
#include "platform/linux/environment/TextDecoding.h"

#include <QStringDecoder>

using namespace corvane;
using namespace corvane::drawing;
using namespace corvane::linux;
using fuzz::require;

namespace {

bool isValidUtf8(const std::string &text) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless |
                                                     QStringDecoder::Flag::ConvertInitialBom);
    const QString decoded = decoder(QByteArrayView(text.data(), qsizetype(text.size())));
    return !decoder.hasError() && decoded.toStdString() == text;
}

void showInMenu(const std::string &title) {
    const MenuText text = menuText({.title = title});
    require(!text.label.contains(u'\n') && !text.label.contains(u'\r'), "a menu line is one line");
    require(text.label.size() <= QString::fromStdString(title).size() + 1,
            "a title is not made longer");
    require(popupText(text).size() >= text.label.size(), "a title in a popup is whole");
    require(panelLabel(text).size() >= text.label.size(), "a title in a panel is whole");
    panelKeys(text);
}

void showInAlert(const std::string &title) {
    const QString text = QString::fromStdString(title);
    QString wrapped = breakable(text);
    require(wrapped.remove(QChar(0x200B)) == QString(text).remove(QChar(0x200B)),
            "wrapping changes no letter");
    require(withoutMnemonic(text).size() == text.size() + text.count(u'&'),
            "every ampersand is doubled");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view bytes = fuzz::textOf(data, size);
    for (const auto read : {utf8Text, latin1Text, compoundText}) {
        const std::string title = read(bytes);
        require(isValidUtf8(title), "a title is valid UTF-8");
        showInMenu(title);
        showInAlert(title);
    }
    return 0;
}
