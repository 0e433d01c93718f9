#include "looksheets.h"

#include "lookpictures.h"
#include "looktable.h"
#include "statesheet.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <QtWidgets/QWidget>

namespace {

constexpr int kFewestToClear = 256;

struct Wearer
{
    QPointer<QWidget> widget;
    const char *sheet = nullptr;
    QStringList arguments;
    QString text; // what the sheet was when it was set
    int look = 0; // and in which one
    bool paints = false;
    void (*follow)(QWidget *) = nullptr;
};

// Widgets are not watched: their entries are cleared away when there are twice as many as there were widgets then.
class Wardrobe
{
public:
    Wearer &entry(QWidget *widget)
    {
        if (m_wearers.size() >= m_clearAt)
            clearAway();
        Wearer &wearer = m_wearers[widget];
        if (!wearer.widget) {
            wearer = {};
            wearer.widget = widget;
        }
        return wearer;
    }

    void forget(QWidget *widget) { m_wearers.remove(widget); }

    Wearer *find(QWidget *widget)
    {
        const auto wearer = m_wearers.find(widget);
        return wearer == m_wearers.end() ? nullptr : &*wearer;
    }

    QVector<QPointer<QWidget>> widgets() const
    {
        QVector<QPointer<QWidget>> widgets;
        widgets.reserve(m_wearers.size());
        for (const Wearer &wearer : m_wearers)
            widgets.append(wearer.widget);
        return widgets;
    }

private:
    void clearAway()
    {
        for (auto wearer = m_wearers.begin(); wearer != m_wearers.end();) {
            if (wearer->widget)
                ++wearer;
            else
                wearer = m_wearers.erase(wearer);
        }
        m_clearAt = qMax(kFewestToClear, 2 * m_wearers.size());
    }

    QHash<QWidget *, Wearer> m_wearers;
    int m_clearAt = kFewestToClear;
};

Wardrobe &wardrobe()
{
    static Wardrobe wardrobe;
    return wardrobe;
}

int looks = 1; // in force so far

// The sheets with the colours of the look in force.
QHash<const char *, QString> &coloredSheets()
{
    static QHash<const char *, QString> sheets;
    return sheets;
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

void followOne(QWidget *widget)
{
    Wearer *const wearer = wardrobe().find(widget);
    if (!wearer)
        return;
    if (wearer->paints)
        widget->update();
    if (wearer->follow) {
        wearer->follow(widget); // last, as below
        return;
    }
    if (!wearer->sheet || widget->styleSheet() != wearer->text)
        return;
    const QString text = LookSheets::text(wearer->sheet, wearer->arguments);
    if (text == wearer->text)
        return;
    wearer->text = text;
    wearer->look = looks;
    widget->setStyleSheet(text); // last: the widget is told, and the client
}

} // namespace

QString LookSheets::text(const char *sheet, const QStringList &arguments)
{
    QString &known = coloredSheets()[sheet];
    if (known.isNull())
        known = colored(QString::fromLatin1(sheet));
    const QString text = arguments.isEmpty() ? known : withArguments(known, arguments);
    return LookTable::instance().isDark() ? LookPictures::inSheet(text) : text;
}

void LookSheets::apply(QWidget *widget, const char *sheet, const QStringList &arguments)
{
    Wearer &wearer = wardrobe().entry(widget);
    const bool isAnother = wearer.sheet != sheet || wearer.look != looks || wearer.arguments != arguments;
    if (isAnother || LookTable::instance().isDark()) { // where pictures may have come or gone
        wearer.sheet = sheet;
        wearer.look = looks;
        wearer.arguments = arguments;
        wearer.text = text(sheet, arguments);
    }
    const QString sheetText = wearer.text;
    applyStateSheet(widget, sheetText);
}

void LookSheets::forget(QWidget *widget)
{
    wardrobe().forget(widget);
}

void LookSheets::repaint(QWidget *widget)
{
    wardrobe().entry(widget).paints = true;
}

void LookSheets::repaint(QWidget *widget, void (*follow)(QWidget *))
{
    repaint(widget);
    wardrobe().entry(widget).follow = follow;
}

void LookSheets::follow()
{
    ++looks;
    coloredSheets().clear();
    const QVector<QPointer<QWidget>> widgets = wardrobe().widgets();
    for (const QPointer<QWidget> &widget : widgets) {
        if (widget)
            followOne(widget);
    }
}
