#include "platform/drawing/DisplayText.h"

#include <QList>
#include <QTextBoundaryFinder>

namespace corvane::drawing {

namespace {

bool isHarmful(QChar character) {
    const auto turnsDirection = (character >= QChar(0x202A) && character <= QChar(0x202E)) ||
                                (character >= QChar(0x2066) && character <= QChar(0x2069));
    return turnsDirection || character.category() == QChar::Other_Control ||
           character.category() == QChar::Separator_Line ||
           character.category() == QChar::Separator_Paragraph;
}

/// Where each character as a reader counts them ends.
QList<qsizetype> characterEnds(const QString &text) {
    QList<qsizetype> ends;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    while (finder.toNextBoundary() >= 0) {
        ends << finder.position();
    }
    return ends;
}

} // namespace

QString onOneLine(QString text) {
    for (auto &character : text) {
        if (isHarmful(character)) {
            character = u' ';
        }
    }
    return text;
}

QString shortened(const QString &text, qsizetype longest) {
    if (text.size() <= longest) {
        return text;
    }
    const auto ends = characterEnds(text);
    if (ends.size() <= longest) {
        return text;
    }
    const auto head = longest / 2;
    const auto tail = longest - head - 1;
    return text.first(ends[head - 1]) + QChar(0x2026) + text.sliced(ends[ends.size() - tail - 1]);
}

QString breakable(const QString &text) {
    constexpr qsizetype longestWord = 24;
    constexpr QChar zeroWidthSpace(0x200B);
    QString wrapped;
    qsizetype start = 0;
    qsizetype wordLength = 0;
    for (const auto end : characterEnds(text)) {
        wordLength = text[start].isSpace() ? 0 : wordLength + 1;
        if (wordLength > longestWord) {
            wrapped += zeroWidthSpace;
            wordLength = 1;
        }
        wrapped += text.sliced(start, end - start);
        start = end;
    }
    return wrapped;
}

/// Qt shows plain text with a '<' in it as HTML, so that all text is sent as HTML.
QString toolTipText(const QString &text) {
    return text.isEmpty() ? text : QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped());
}

QString withoutMnemonic(QString text) { return text.replace(u'&', QStringLiteral("&&")); }

} // namespace corvane::drawing
