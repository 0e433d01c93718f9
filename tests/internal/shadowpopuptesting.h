#pragma once

#include "customcomboxitem.h"
#include "shadowpopupwidget.h"

#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

/// What the tests of ShadowPopupWidget share.
namespace ShadowPopupTesting {

// The list with what it is made of.
class List : public ShadowPopupWidget
{
public:
    explicit List(QWidget *parent = nullptr)
        : ShadowPopupWidget(QStringLiteral(":/images/images/combox/popup_bg.png"), 4, 4, 4, 4, 4, parent)
    {
    }
    List(int margin, int rowHeight, QWidget *parent = nullptr)
        : ShadowPopupWidget(QStringLiteral(":/images/images/combox/popup_small.png"), margin, rowHeight,
                            parent)
    {
    }

    QScrollArea *area() const { return findChild<QScrollArea *>(); }
    QScrollBar *bar() const { return area()->verticalScrollBar(); }
    QWidget *content() const { return area()->widget(); }
    // In display order.
    CustomComboxItem *row(int index) const
    {
        return qobject_cast<CustomComboxItem *>(content()->layout()->itemAt(index)->widget());
    }
    void add(int rows)
    {
        for (int index = 0; index < rows; ++index)
            addItem(new CustomComboxItem(QStringLiteral("Row %1").arg(count()), nullptr));
    }
    bool showAndWait()
    {
        setFixedWidth(268);
        show();
        return QTest::qWaitForWindowExposed(this);
    }
};

inline bool isChecked(const CustomComboxItem *row)
{
    const QString sheet = row->findChild<QLabel *>()->styleSheet();
    return sheet.contains(QLatin1String("#4B66EB"));
}

inline bool isGray(const CustomComboxItem *row)
{
    return row->findChild<QLabel *>()->styleSheet().contains(QLatin1String("#B1B1B2"));
}

inline bool isHovered(const CustomComboxItem *row)
{
    return row->styleSheet().contains(QLatin1String("#F4F4F4"));
}

} // namespace ShadowPopupTesting
