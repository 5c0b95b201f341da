#include "shell/mnemonics.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSet>
#include <QVariant>
#include <vector>

#include "shell/translations.h"
#include "ui/mnemonic.h"

namespace kelvane {

namespace {

struct Caption {
    QObject* holder;
    const ShownText* shown;

    QString text() const { return holder->property(shown->property).toString(); }
    QString english() const { return holder->property(shown->english).toString(); }
    bool isOurs() const { return holder->property(shown->last).toString() == text() && english() != text(); }
    void set(const QString& text) const {
        holder->setProperty(shown->property, text);
        holder->setProperty(shown->last, text);
    }
};

QChar letterOf(const QString& text) {
    const qsizetype mark = text.indexOf(QLatin1Char('&'));
    return mark >= 0 && mark + 1 < text.size() && text[mark + 1] != u'&' ? text[mark + 1].toUpper() : QChar();
}

// Beginnings of words first.
std::vector<qsizetype> lettersOf(const QString& text) {
    std::vector<qsizetype> places;
    for (const bool beginnings : {true, false})
        for (qsizetype i = 0; i < text.size(); ++i)
            if (text[i].isLetter() && (i == 0 || !text[i - 1].isLetter()) == beginnings) places.push_back(i);
    return places;
}

// Where letters have no key of their own the mark stands behind the text, in parentheses.
QString withFreeLetter(const QString& text, const QString& english, const QSet<QChar>& taken) {
    static const QRegularExpression behind(QStringLiteral("\\(&.\\)"));
    if (const auto match = behind.match(text); match.hasMatch()) {
        QString plain = text;
        plain.remove(match.capturedStart(), match.capturedLength());
        for (const qsizetype i : lettersOf(english))
            if (!taken.contains(english[i].toUpper()))
                return plain.insert(match.capturedStart(), QStringLiteral("(&%1)").arg(english[i].toUpper()));
        return plain;
    }
    QString plain = withoutMnemonic(text);
    for (const qsizetype i : lettersOf(plain))
        if (!taken.contains(plain[i].toUpper())) return plain.insert(i, QLatin1Char('&'));
    return plain;
}

void giveLetters(const std::vector<Caption>& captions) {
    QSet<QChar> taken{QChar()};
    for (const Caption& caption : captions)
        if (!caption.isOurs()) taken.insert(letterOf(caption.text()));
    for (const Caption& caption : captions) {
        if (!caption.isOurs()) continue;
        QString text = caption.text();
        if (letterOf(text).isNull()) continue;
        if (taken.contains(letterOf(text))) {
            text = withFreeLetter(text, caption.english(), taken);
            caption.set(text);
        }
        taken.insert(letterOf(text));
    }
}

void addItems(std::vector<Caption>& captions, const QList<QAction*>& items) {
    for (QAction* item : items) {
        if (item->menu()) {
            captions.push_back({item->menu(), &ShownTexts[1]});
        } else {
            captions.push_back({item, &ShownTexts[0]});
        }
    }
}

}  // namespace

void giveEachLetterOnce(QWidget& window) {
    std::vector<Caption> inWindow;
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (const auto* menu = qobject_cast<const QMenu*>(control)) {
            std::vector<Caption> inMenu;
            addItems(inMenu, menu->actions());
            giveLetters(inMenu);
        } else if (const auto* bar = qobject_cast<const QMenuBar*>(control)) {
            addItems(inWindow, bar->actions());
        } else if (const auto* label = qobject_cast<const QLabel*>(control);
                   label ? label->buddy() != nullptr : control->inherits("QAbstractButton")) {
            inWindow.push_back({control, &ShownTexts[0]});
        }
    }
    giveLetters(inWindow);
}

}  // namespace kelvane
