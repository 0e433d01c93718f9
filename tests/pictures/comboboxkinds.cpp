#include "customcombox.h"
#include "customcomboxheader.h"
#include "customshadowcombox.h"
#include "events.h"
#include "kinds.h"

#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLayout>
#include <QtWidgets/QScrollArea>

namespace Pictures {

namespace {

QWidget *filled(CustomShadowCombox *combo, QSize size)
{
    combo->resize(size);
    combo->setItems({QStringLiteral("Front door"), QStringLiteral("Gate"), QStringLiteral("Yard"),
                     QStringLiteral("Hall")});
    combo->setCurrentIndex(0);
    return combo;
}

QWidget *comboBox()
{
    return filled(new CustomShadowCombox, QSize(180, 40));
}

QWidget *smallComboBox()
{
    return filled(new CustomShadowCombox(true, nullptr), QSize(120, 24));
}

void setComboText(CustomShadowCombox *combo, const QString &text)
{
    combo->setItems({text});
    combo->setCurrentIndex(0);
}

QVector<State> statesOfComboBox()
{
    QVector<State> states{asMade(), hovered(), pressed(), disabled(), focused()};
    states << state<CustomShadowCombox>("second row",
                                        [](CustomShadowCombox *combo) { combo->setCurrentIndex(1); })
           << state<CustomShadowCombox>("without rows", [](CustomShadowCombox *combo) { combo->reset(); })
           << state<CustomShadowCombox>("open", [](CustomShadowCombox *combo) { Events::click(combo); });
    states << rightToLeft();
    return states + texts<CustomShadowCombox>(&setComboText);
}

QWidget *listOf(QWidget *combo)
{
    const QList<QWidget *> children = combo->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *child : children) {
        if (child->isWindow())
            return child;
    }
    return nullptr;
}

QWidget *rowOf(QWidget *combo, int index)
{
    const auto *area = listOf(combo)->findChild<QScrollArea *>();
    return area->widget()->layout()->itemAt(index)->widget();
}

template<typename Combo>
State open(const char *name, void (*prepare)(Combo *), void (*then)(Combo *))
{
    return {QLatin1String(name),
            [=](QWidget *widget) {
                auto *combo = static_cast<Combo *>(widget);
                prepare(combo);
                Events::click(combo);
                QTRY_VERIFY(listOf(combo)->isVisible());
                then(combo);
            },
            {}};
}

QVector<State> statesOfList()
{
    using Combo = CustomShadowCombox;
    const auto nothing = [](Combo *) {
    };
    const QStringList layouts{QStringLiteral("texts"), QStringLiteral("more than it shows"),
                              QStringLiteral("right to left")};
    QVector<State> states;
    states << open<Combo>("default", nothing, nothing)
           << open<Combo>(
                  "second row chosen", [](Combo *combo) { combo->setCurrentIndex(1); }, nothing)
           << open<Combo>("hover", nothing, [](Combo *combo) { Events::hover(rowOf(combo, 2)); })
           << open<Combo>("pressed", nothing, [](Combo *combo) { Events::press(rowOf(combo, 2)); })
           << open<Combo>(
                  "kinds of rows",
                  [](Combo *combo) {
                      combo->reset();
                      combo->addItem(QStringLiteral("Plain"));
                      combo->addItem(QStringLiteral("Grey, with an icon"), true, true);
                      combo->addItem(QStringLiteral("Grey"), true, false);
                      combo->addItem(QStringLiteral("Large"), 20);
                      combo->addItem(QStringLiteral("Low"), 24, 12, 12);
                  },
                  nothing)
           << open<Combo>(
                  "texts",
                  [](Combo *combo) {
                      combo->reset();
                      const QVector<NamedText> all = peculiarTexts();
                      for (const NamedText &named : all)
                          combo->addItem(named.text);
                  },
                  nothing)
           << open<Combo>(
                  "more than it shows",
                  [](Combo *combo) {
                      for (int row = 0; row < 12; ++row)
                          combo->addItem(QStringLiteral("Camera %1").arg(row));
                  },
                  nothing)
           << open<Combo>(
                  "right to left", [](Combo *) { QApplication::setLayoutDirection(Qt::RightToLeft); },
                  nothing)
           << open<Combo>("keyboard", nothing,
                          [](Combo *combo) { QTest::keyClick(listOf(combo)->windowHandle(), Qt::Key_Down); });
    for (State &state : states)
        state.isOfLayout = layouts.contains(state.name);
    return states;
}

QWidget *header()
{
    auto *header = new CustomComboxHeader;
    header->resize(180, 40);
    header->setText(QStringLiteral("Front door"));
    return header;
}

QVector<State> statesOfHeader()
{
    QVector<State> states{asMade(), hovered(), pressed(), disabled(), rightToLeft()};
    states << state<CustomComboxHeader>("arrow up",
                                        [](CustomComboxHeader *header) { header->setIconState(true); })
           << State{QStringLiteral("small"), [](QWidget *) {},
                    [] {
                        auto *header = new CustomComboxHeader(true, nullptr);
                        header->resize(120, 24);
                        header->setText(QStringLiteral("Front door"));
                        return header;
                    }};
    return states + texts<CustomComboxHeader>(
                        [](CustomComboxHeader *header, const QString &text) { header->setText(text); });
}

QWidget *plainComboBox()
{
    auto *combo = new customcombox;
    combo->addItems({QStringLiteral("Front door"), QStringLiteral("Gate"), QStringLiteral("Yard")});
    combo->resize(160, 32);
    return combo;
}

QVector<State> statesOfPlainComboBox()
{
    QVector<State> states{asMade(), hovered(), disabled(), focused(), rightToLeft()};
    states << state<customcombox>("editable", [](customcombox *combo) {
        combo->setEditable(true);
        combo->setLineEditWidth(100);
    });
    return states + texts<customcombox>([](customcombox *combo, const QString &text) {
               combo->clear();
               combo->addItem(text);
           });
}

} // namespace

QVector<Kind> comboBoxKinds()
{
    return {
        {"customshadowcombox", &comboBox, statesOfComboBox(), true, {}},
        {"customshadowcombox-small", &smallComboBox, statesOfComboBox(), true, {}},
        {"customshadowcombox-list", &comboBox, statesOfList(), true, &listOf},
        {"customcomboxheader", &header, statesOfHeader(), true, {}},
        {"customcombox", &plainComboBox, statesOfPlainComboBox(), false, {}},
    };
}

} // namespace Pictures
