#include "looksheets.h"

#include "lookpictures.h"
#include "looktable.h"
#include "statesheet.h"

#include <QtCore/QHash>
#include <QtCore/QPair>
#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <utility>

namespace {

constexpr int kFewestToClear = 256;
constexpr int kMostTexts = 256;

using Sheet = QPair<const char *, QStringList>; // with its arguments

struct Wearer
{
    Sheet sheet;
    QString text; // what the sheet was when it was set
};

// Widgets are not watched: those that are gone are cleared away when there are twice as many as there were widgets
// then.
QHash<QWidget *, Wearer> &wearers()
{
    static QHash<QWidget *, Wearer> wearers;
    return wearers;
}

// The sheets in the look in force, shared by all who wear them.
QHash<Sheet, QString> &texts()
{
    static QHash<Sheet, QString> texts;
    return texts;
}

void clearAway()
{
    static int clearAt = kFewestToClear;
    if (wearers().size() < clearAt)
        return;
    QHash<QWidget *, Wearer> living;
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        const auto wearer = wearers().constFind(widget);
        if (wearer != wearers().constEnd())
            living.insert(widget, *wearer);
    }
    wearers().swap(living);
    clearAt = qMax(kFewestToClear, 2 * int(wearers().size()));
}

bool isInName(QChar character)
{
    return character.isLetterOrNumber();
}

QString colored(const QString &sheet)
{
    QString text;
    text.reserve(sheet.size());
    int done = 0;
    for (int at = sheet.indexOf(u'@'); at >= 0; at = sheet.indexOf(u'@', done)) {
        int end = at + 1;
        while (end < sheet.size() && isInName(sheet.at(end)))
            ++end;
        text.append(sheet.constData() + done, at - done);
        text += LookTable::instance().text(sheet.mid(at + 1, end - at - 1));
        done = end;
    }
    return text.append(sheet.constData() + done, sheet.size() - done);
}

// All at once: nothing is looked for in what an argument has brought.
QString withArguments(const QString &sheet, const QStringList &arguments)
{
    QString text;
    int done = 0;
    for (int at = sheet.indexOf(u'%'); at >= 0; at = sheet.indexOf(u'%', done)) {
        text.append(sheet.constData() + done, at - done);
        text += arguments.value(sheet.at(at + 1).digitValue() - 1);
        done = at + 2;
    }
    return text.append(sheet.constData() + done, sheet.size() - done);
}

// A sheet and its text in the look in force.
using Known = QHash<Sheet, QString>::const_iterator;
Known known(const Sheet &sheet)
{
    const Known found = texts().constFind(sheet);
    if (found != texts().constEnd())
        return found;
    if (texts().size() >= kMostTexts)
        texts().clear();
    return Known(
        texts().insert(sheet, withArguments(colored(QString::fromLatin1(sheet.first)), sheet.second)));
}

// In a dark look pictures may have come or gone.
QString withPictures(const QString &text)
{
    return LookTable::instance().isDark() ? LookPictures::inSheet(text) : text;
}

void followOne(QWidget *widget)
{
    widget->update(); // it may paint with colours by itself
    const auto wearer = wearers().find(widget);
    if (wearer == wearers().end() || widget->styleSheet() != wearer->text)
        return;
    const QString text = withPictures(*known(wearer->sheet));
    if (text != std::exchange(wearer->text, text))
        widget->setStyleSheet(text); // last: the widget is told, and the client
}

} // namespace

QString LookSheets::text(const char *sheet)
{
    return withPictures(*known({sheet, {}}));
}

void LookSheets::apply(QWidget *widget, const char *sheet, const QStringList &arguments)
{
    clearAway();
    const auto shared = known({sheet, arguments});
    const QString text = withPictures(*shared);
    wearers().insert(widget, {shared.key(), text});
    applyStateSheet(widget, text);
}

void LookSheets::forget(QWidget *widget)
{
    wearers().remove(widget);
}

void LookSheets::follow()
{
    texts().clear();
    const QWidgetList all = QApplication::allWidgets();
    const QVector<QPointer<QWidget>> widgets(all.cbegin(), all.cend());
    for (const QPointer<QWidget> &widget : widgets) {
        if (widget)
            followOne(widget);
    }
}
