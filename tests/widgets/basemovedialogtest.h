#pragma once

#include "basemovedialog.h"
#include "framelesshelper.h"
#include "mouseevents.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <memory>

const QRect kGeometry(100, 200, 300, 250);
const QPoint kTitle(150, 30);
const QPoint kMiddle(150, 130);

/// What the tests of the dialog base share: a movable dialog, and a pointer that is where they say. All
/// positions are relative to the place that the dialog has at first.
class BaseMoveDialogTest : public QObject
{
protected:
    void setUp()
    {
        m_dialog = std::make_unique<BaseMoveDialog>(nullptr, true, false, false);
        m_dialog->setGeometry(kGeometry);
    }

    void tearDown()
    {
        m_dialog.reset();
        FramelessHelper shared;
        shared.setBorderWidth(5);
        shared.setTitleHeight(50);
        shared.setRightBottomAreaExtraPix(10);
        shared.setEnabelRightBottomAreaResize(false);
    }

    static QPoint at(const QPoint &local) { return kGeometry.topLeft() + local; }
    void press(const QPoint &local) { MouseEvents::press(m_dialog.get(), at(local)); }
    void moveTo(const QPoint &local) { MouseEvents::move(m_dialog.get(), at(local)); }
    void release(const QPoint &local) { MouseEvents::release(m_dialog.get(), at(local)); }
    FramelessHelper *helper() const { return m_dialog->findChild<FramelessHelper *>(); }

    std::unique_ptr<BaseMoveDialog> m_dialog;
};
