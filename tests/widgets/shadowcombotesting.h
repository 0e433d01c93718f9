#pragma once

#include "customcomboxheader.h"
#include "customshadowcombox.h"

#include <QtCore/QPointer>
#include <QtGui/QCursor>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>
#include <QtWidgets/QScrollArea>

#include <functional>
#include <memory>

/// What the tests of CustomShadowCombox share.
namespace ShadowComboTesting {

// The combo box with what it is made of.
class Combo : public CustomShadowCombox
{
public:
    using CustomShadowCombox::CustomShadowCombox;
    using CustomShadowCombox::showPopup;
    using CustomShadowCombox::slotAddOneLiveOption;
    using CustomShadowCombox::slotCurrentGrayIndexChanged;
    using CustomShadowCombox::slotCurrentIndexChanged;
    using CustomShadowCombox::slotDeleteOneLiveOption;
    using CustomShadowCombox::slotHeaderClicked;

    CustomComboxHeader *header() const { return findChild<CustomComboxHeader *>(); }
    QString headerText() const { return headerLabel(0)->text(); }
    QString arrow() const { return headerLabel(1)->styleSheet(); }
    QLabel *headerLabel(int index) const { return header()->findChildren<QLabel *>().at(index); }
    QWidget *popup() const
    {
        const QList<QWidget *> children = findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget *child : children) {
            if (child->isWindow())
                return child;
        }
        return nullptr;
    }
    bool isOpen() const { return popup()->isVisible(); }
    // In display order.
    QWidget *row(int index) const
    {
        const auto *area = popup()->findChild<QScrollArea *>();
        return area->widget()->layout()->itemAt(index)->widget();
    }
    QLabel *rowLabel(int row, int index) const
    {
        return this->row(row)->findChildren<QLabel *>().value(index);
    }
    void add(int rows)
    {
        for (int index = 0; index < rows; ++index)
            addItem(QStringLiteral("Row %1").arg(count()), 16);
    }
    // Clicks with the pointer where they are: what is outside is judged by the pointer.
    void clickRow(int index) const
    {
        const QPoint pos = row(index)->mapTo(popup(), row(index)->rect().center());
        QCursor::setPos(popup()->mapToGlobal(pos));
        QTest::mouseClick(popup()->windowHandle(), Qt::LeftButton, Qt::NoModifier, pos);
    }
    void clickHeader() const
    {
        QCursor::setPos(header()->mapToGlobal(header()->rect().center()));
        QTest::mouseClick(header(), Qt::LeftButton);
    }
};

// The signals of a combo box, in the order in which they come, with whether the list was open then.
class SignalLog
{
public:
    explicit SignalLog(Combo *combo)
    {
        const auto note = [this, combo](const QString &what) {
            m_entries << what + (combo->isOpen() ? QStringLiteral(" open") : QStringLiteral(" closed"));
        };
        const auto noteIndex = [note](const char *what, int index) {
            note(QStringLiteral("%1(%2)").arg(QLatin1String(what)).arg(index));
        };
        QObject::connect(combo, &Combo::currentIndexChanged, combo,
                         [noteIndex](int index) { noteIndex("current", index); });
        QObject::connect(combo, &Combo::currentGrayIndexChanged, combo,
                         [noteIndex](int index) { noteIndex("gray", index); });
        QObject::connect(combo, &Combo::signalPopWidHideWhenClickOtherPos, combo,
                         [note] { note(QStringLiteral("hidden")); });
        QObject::connect(combo, &Combo::signalMouseMoveLeavePopup, combo,
                         [this](QPoint pos) { moves << pos; });
        QObject::connect(combo, &Combo::signalAddOneLiveOption, combo,
                         [note] { note(QStringLiteral("add")); });
        QObject::connect(combo, &Combo::signalDeleteOneLiveOption, combo,
                         [noteIndex](int index) { noteIndex("delete", index); });
    }
    // What came since the last call.
    QStringList take()
    {
        QStringList entries;
        entries.swap(m_entries);
        return entries;
    }

    QVector<QPoint> moves; // signalMouseMoveLeavePopup(): it comes whenever the pointer goes anywhere

private:
    QStringList m_entries;
};

inline const QStringList kHiddenOnce{QStringLiteral("hidden closed")};
inline const QString kUpArrow = QStringLiteral("QLabel{border-image:url(:/images/images/combox/up.png);}");
inline const QString kDownArrow =
    QStringLiteral("QLabel{border-image:url(:/images/images/combox/down.png);}");

inline void sendDeactivate(QWidget *popup)
{
    QEvent event(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(popup, &event);
}

// A window with a combo box in it, made anew for each test, and the pointer outside both.
class Fixture : public QObject
{
protected:
    void makeWindow()
    {
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(100, 60, 300, 160);
        m_combo = new Combo(m_window.get());
        m_combo->setGeometry(20, 40, 200, 48);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        QCursor::setPos(m_window->mapToGlobal(QPoint(290, 10)));
    }
    void deleteWindow() { m_window.reset(); }
    void open()
    {
        if (m_combo->count() == 0)
            m_combo->add(3);
        m_combo->clickHeader();
        QVERIFY(m_combo->isOpen());
        QVERIFY(QTest::qWaitForWindowExposed(m_combo->popup()));
        QCursor::setPos(m_window->mapToGlobal(QPoint(290, 10)));
        QCoreApplication::processEvents();
    }

    std::unique_ptr<QWidget> m_window;
    QPointer<Combo> m_combo;
};

} // namespace ShadowComboTesting
