#include "insideloop.h"
#include "logcapture.h"
#include "maskeddialogs.h"
#include "testmain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>

using namespace MaskedDialogs;

/// The form of PopupDlgWithMask that turns pages; what both forms share is tested in tst_popupdlgwithmask.
class tst_PopupDlgWithMaskPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void buildsThePages();
    void buildsTheDots_data();
    void buildsTheDots();
    void copiesThePages();
    void unequalListsGiveNoPages_data();
    void unequalListsGiveNoPages();
    void turnsPages();
    void onePageStays();
    void timerFollowsVisibility();
    void keepsThePageWhenShownAgain();
    void pagesHaveNoContent();
};

void tst_PopupDlgWithMaskPages::buildsThePages()
{
    const auto dialog = makePages(3);
    const QVBoxLayout *layout = mainLayoutOf(dialog.get());
    QCOMPARE(layout->contentsMargins(), QMargins(17, 18, 19, 20));
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->count(), 4);
    QVERIFY(qobject_cast<QHBoxLayout *>(layout->itemAt(0)->layout()));
    QCOMPARE(layout->itemAt(1)->widget(), stackOf(dialog.get()));
    QVERIFY(isStretch(layout->itemAt(2), Qt::Vertical));
    QVERIFY(qobject_cast<QHBoxLayout *>(layout->itemAt(3)->layout()));
    QVERIFY(!hasAlignment(layout));

    const QStackedWidget *stack = stackOf(dialog.get());
    QCOMPARE(stack->parentWidget(), dialog.get());
    QCOMPARE(stack->count(), 3);
    QCOMPARE(stack->currentIndex(), 0);
    for (int i = 0; i < 3; ++i) {
        const QWidget *page = stack->widget(i);
        QCOMPARE(page->minimumSize(), QSize(268, 287));
        QCOMPARE(page->maximumSize(), QSize(268, 287));
        const QLayout *column = page->layout();
        QVERIFY(qobject_cast<const QVBoxLayout *>(column));
        QCOMPARE(column->contentsMargins(), QMargins(0, 10, 0, 0));
        QCOMPARE(column->spacing(), 0);
        QCOMPARE(column->count(), 7);
        QCOMPARE(column->itemAt(1)->sizeHint(), QSize(0, 14));
        QCOMPARE(column->itemAt(3)->sizeHint(), QSize(0, 14));
        QCOMPARE(column->itemAt(5)->sizeHint(), QSize(0, 4));
        QVERIFY(!hasAlignment(column));

        const auto *picture = qobject_cast<QLabel *>(widgetIn(column, 0));
        QCOMPARE(picture->minimumSize(), QSize(268, 204));
        QCOMPARE(picture->maximumSize(), QSize(268, 204));
        QCOMPARE(picture->styleSheet(), QStringLiteral("QLabel \n{ \n background: transparent;\n"
                                                       " border-image: url(:/client/page%1.png);\n}")
                                            .arg(i));
        QCOMPARE(widgetIn(column, 2)->minimumSize(), QSize(268, 4));
        QCOMPARE(widgetIn(column, 2)->maximumSize(), QSize(268, 4));

        const auto *title = qobject_cast<QLabel *>(widgetIn(column, 4));
        QCOMPARE(title->text(), QStringLiteral("Page %1").arg(i));
        QCOMPARE(title->minimumSize(), QSize(268, 20));
        QCOMPARE(title->maximumSize(), QSize(268, 20));
        QCOMPARE(title->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
        QVERIFY(title->testAttribute(Qt::WA_LayoutUsesWidgetRect));
        QCOMPARE(title->styleSheet(),
                 QStringLiteral("QLabel \n{ \n background: transparent; font-size: 14px;\n"
                                " font-weight: Medium; \n color: #333333; \n}"));

        const auto *text = qobject_cast<QLabel *>(widgetIn(column, 6));
        QCOMPARE(text->text(), QStringLiteral("Text %1").arg(i));
        QCOMPARE(text->minimumSize(), QSize(268, 17));
        QCOMPARE(text->maximumSize(), QSize(268, 17));
        QCOMPARE(text->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
        QVERIFY(text->testAttribute(Qt::WA_LayoutUsesWidgetRect));
        QCOMPARE(text->styleSheet(),
                 QStringLiteral("QLabel \n{ \n background: transparent; font-size: 12px;\n"
                                " font-weight: Normal; \n color: #888888; \n}"));
    }
}

void tst_PopupDlgWithMaskPages::buildsTheDots_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("one") << 1;
    QTest::newRow("three") << 3;
    QTest::newRow("seven") << 7;
}

void tst_PopupDlgWithMaskPages::buildsTheDots()
{
    QFETCH(const int, count);
    const auto dialog = makePages(count);
    dialog->show(true);
    for (int page = 0; page < count; ++page) {
        const QWidget *dots = widgetIn(stackOf(dialog.get())->widget(page)->layout(), 2);
        const QLayout *row = dots->layout();
        QVERIFY(qobject_cast<const QHBoxLayout *>(row));
        QCOMPARE(row->contentsMargins(), QMargins());
        QCOMPARE(row->spacing(), 4);
        QCOMPARE(row->count(), count + 2);
        QVERIFY(isStretch(row->itemAt(0), Qt::Horizontal));
        QVERIFY(isStretch(row->itemAt(count + 1), Qt::Horizontal));
        for (int i = 0; i < count; ++i) {
            const QWidget *dot = widgetIn(row, i + 1);
            QVERIFY(qobject_cast<const QLabel *>(dot));
            QCOMPARE(dot->minimumSize(), QSize(4, 4));
            QCOMPARE(dot->maximumSize(), QSize(4, 4));
            QCOMPARE(dot->styleSheet(), QStringLiteral("QLabel \n{ \n background:%1;\n border-radius:2px;\n}")
                                            .arg(QLatin1String(i == page ? "#666666" : "#CCCCCC")));
        }
        QCOMPARE(widgetIn(row, 1)->x(), 268 - widgetIn(row, count)->geometry().right() - 1);
        turnPage(dialog.get());
    }
}

void tst_PopupDlgWithMaskPages::copiesThePages()
{
    QVector<QString> images{QStringLiteral("a"), QStringLiteral("b")};
    QVector<QString> titles{QStringLiteral("A"), QStringLiteral("B")};
    QVector<QString> contents{QStringLiteral("1"), QStringLiteral("2")};
    const QVector<QString> before = images;
    const PopupDlgWithMask dialog(QString(), kSize, 0, 0, 0, 0, QString(), images, titles, contents,
                                  QString(), QString(), false, false, false, false, nullptr);
    QCOMPARE(images, before);
    QCOMPARE(titles, QVector<QString>({QStringLiteral("A"), QStringLiteral("B")}));
    QCOMPARE(contents, QVector<QString>({QStringLiteral("1"), QStringLiteral("2")}));
    QCOMPARE(stackOf(&dialog)->count(), 2);
}

void tst_PopupDlgWithMaskPages::unequalListsGiveNoPages_data()
{
    QTest::addColumn<int>("images");
    QTest::addColumn<int>("titles");
    QTest::addColumn<int>("contents");
    QTest::newRow("fewer titles") << 3 << 2 << 3;
    QTest::newRow("more contents") << 3 << 3 << 4;
    QTest::newRow("no images") << 0 << 1 << 1;
    QTest::newRow("empty") << 0 << 0 << 0;
}

void tst_PopupDlgWithMaskPages::unequalListsGiveNoPages()
{
    QFETCH(const int, images);
    QFETCH(const int, titles);
    QFETCH(const int, contents);
    const LogCapture log;
    const std::unique_ptr<PopupDlgWithMask> dialog(newPages(images, titles, contents));
    QVERIFY(titleOf(dialog.get()));
    QVERIFY(confirmButtonOf(dialog.get()));
    QCOMPARE(stackOf(dialog.get())->count(), 0);
    QCOMPARE(stackOf(dialog.get())->currentIndex(), -1);
    dialog->show(true);
    QVERIFY(pageTimerOf(dialog.get())->isActive());
    turnPage(dialog.get());
    QCOMPARE(stackOf(dialog.get())->currentIndex(), -1);
    QCOMPARE(libraryTexts(log), QStringList());
}

void tst_PopupDlgWithMaskPages::turnsPages()
{
    const auto dialog = makePages(3);
    dialog->show(true);
    QVector<int> seen;
    for (int i = 0; i < 5; ++i) {
        seen << stackOf(dialog.get())->currentIndex();
        QVERIFY(stackOf(dialog.get())->currentWidget()->isVisible());
        turnPage(dialog.get());
    }
    QCOMPARE(seen, QVector<int>({0, 1, 2, 0, 1}));
}

void tst_PopupDlgWithMaskPages::onePageStays()
{
    const auto dialog = makePages(1);
    QSignalSpy turned(stackOf(dialog.get()), &QStackedWidget::currentChanged);
    dialog->show(true);
    QVERIFY(pageTimerOf(dialog.get())->isActive());
    turnPage(dialog.get());
    QCOMPARE(turned.count(), 0);
    QCOMPARE(stackOf(dialog.get())->currentIndex(), 0);
}

void tst_PopupDlgWithMaskPages::timerFollowsVisibility()
{
    const auto dialog = makePages(2);
    QTimer *timer = pageTimerOf(dialog.get());
    QCOMPARE(timer->timerType(), Qt::PreciseTimer);
    QCOMPARE(timer->interval(), 3000);
    QVERIFY(!timer->isSingleShot());
    QVERIFY(!timer->isActive());

    dialog->show(true);
    QVERIFY(timer->isActive());
    for (const bool hideFirst : {false, true}) {
        const auto restarts = [&] {
            const int before = timer->remainingTime();
            if (hideFirst)
                dialog->hide();
            dialog->show(true);
            return timer->remainingTime() > before;
        };
        bool restarted = false;
        QTRY_VERIFY(restarted = restarted || restarts());
        QVERIFY(timer->isActive());
    }

    const QList<Action> waysToHide{[](PopupDlgWithMask *shown) { shown->hide(); },
                                   [](PopupDlgWithMask *shown) { shown->close(); },
                                   [](PopupDlgWithMask *shown) { shown->forceToExit(); },
                                   [](PopupDlgWithMask *shown) {
                                       InsideLoop::click(confirmButtonOf(shown));
                                   }};
    for (const Action &hide : waysToHide) {
        dialog->show(true);
        QVERIFY(timer->isActive());
        hide(dialog.get());
        QVERIFY(!timer->isActive());
    }
}

void tst_PopupDlgWithMaskPages::keepsThePageWhenShownAgain()
{
    const auto dialog = makePages(3);
    dialog->show(true);
    turnPage(dialog.get());
    dialog->hide();
    dialog->show(true);
    QCOMPARE(stackOf(dialog.get())->currentIndex(), 1);
}

void tst_PopupDlgWithMaskPages::pagesHaveNoContent()
{
    const auto dialog = makePages(2);
    const auto texts = [&] {
        QStringList result;
        const auto labels = dialog->findChildren<QLabel *>();
        for (const QLabel *label : labels)
            result << label->text();
        return result;
    };
    const QStringList before = texts();
    dialog->setContent(QStringLiteral("Lost"));
    QCOMPARE(texts(), before);
}

ORV_TEST_MAIN(tst_PopupDlgWithMaskPages)

#include "tst_popupdlgwithmask_pages.moc"
