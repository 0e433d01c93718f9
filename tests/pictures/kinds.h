#pragma once

#include <QtCore/QString>
#include <QtCore/QVector>

#include <functional>

class QWidget;

namespace Pictures {

using Maker = std::function<QWidget *()>;
using Step = std::function<void(QWidget *)>;
using Part = std::function<QWidget *(QWidget *)>;

/// How a widget gets into a state: it is made, shown, and then gone through a step.
struct State
{
    QString name;
    Step enter;
    Maker make = {}; ///< where the state begins with the constructor; otherwise the kind's own is used
    bool isOfLayout = false; ///< moves what is painted and colours nothing: one look shows it all
    Part painted = {};       ///< what of it is painted, if not what the kind says
};

/// A class in one of its forms, with the states that it has.
struct Kind
{
    const char *name;
    Maker make;
    QVector<State> states;
    bool hasLooks;         ///< whether it wears the colours of light and dark
    Part painted;          ///< what of it is painted, if not the whole
    bool isWindow = false; ///< otherwise it stands in one
};

QVector<Kind> buttonKinds();
QVector<Kind> comboBoxKinds();
QVector<Kind> sliderKinds();
QVector<Kind> textKinds();
QVector<Kind> dialogKinds();

/// The states that every control has.
State asMade();
State hovered();
State pressed();
State disabled();
State focused();
/// Of the application, until the next widget is made.
State rightToLeft();

template<typename Widget>
State state(const char *name, void (*enter)(Widget *))
{
    return {QLatin1String(name), [enter](QWidget *widget) { enter(static_cast<Widget *>(widget)); }, {}};
}

/// Texts that a widget is given in turn, by what is peculiar to them.
struct NamedText
{
    const char *name;
    QString text;
};
QVector<NamedText> peculiarTexts();

template<typename Widget>
QVector<State> texts(void (*setText)(Widget *, const QString &))
{
    QVector<State> states;
    const QVector<NamedText> all = peculiarTexts();
    for (const NamedText &named : all) {
        states << State{QLatin1String(named.name),
                        [=](QWidget *widget) { setText(static_cast<Widget *>(widget), named.text); },
                        {},
                        true};
    }
    return states;
}

/// The same where the text is one that the constructor takes.
QVector<State> texts(QWidget *(*make)(const QString &));

/// A picture of one colour, whose path this is.
QString swatch(const char *color, int side = 16);

} // namespace Pictures
