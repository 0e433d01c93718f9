#include "insideloop.h"
#include "orvcommonlib.h"
#include "pictures.h"
#include "testmain.h"
#include "tipsdlgwithcheckbox.h"

#include <QtCore/QFile>
#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtGui/QWindow>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <functional>
#include <memory>

namespace {

using Action = std::function<void(TipsDlgWithCheckbox *)>;

constexpr QSize kSize(400, 260);
const char kLineStyle[] = "QLabel \n{ \n background: transparent;font-size: 14px;\n font-weight: Normal; \n"
                          " color: #78797B; \nqproperty-wordWrap: true;\ntext-align: left; \n}";

TipsDlgWithCheckbox *newTip(QWidget *parent = nullptr, QSize size = kSize)
{
    return new TipsDlgWithCheckbox(parent, size, QStringLiteral("Title"), QStringLiteral("Content"),
                                   QStringLiteral("Not again"), QStringLiteral("OK"));
}

TipsDlgWithCheckbox *newLines(int count, QWidget *parent = nullptr)
{
    QVector<QString> lines;
    for (int i = 0; i < count; ++i)
        lines << QStringLiteral("Line %1").arg(i);
    return new TipsDlgWithCheckbox(parent, kSize, QStringLiteral("Title"), lines, QStringLiteral("Not again"),
                                   QStringLiteral("OK"));
}

QVBoxLayout *mainLayoutOf(const TipsDlgWithCheckbox *dialog)
{
    return qobject_cast<QVBoxLayout *>(dialog->layout());
}

/// The layout at `index` of the main layout, or that of the widget which is there.
QLayout *part(const TipsDlgWithCheckbox *dialog, int index)
{
    QLayoutItem *item = dialog->layout()->itemAt(index);
    return item->widget() ? item->widget()->layout() : item->layout();
}

QLayout *bottomRowOf(const TipsDlgWithCheckbox *dialog)
{
    return part(dialog, dialog->layout()->count() - 1);
}

QLabel *titleOf(const TipsDlgWithCheckbox *dialog)
{
    return qobject_cast<QLabel *>(part(dialog, 0)->itemAt(0)->widget());
}

QPushButton *closeButtonOf(const TipsDlgWithCheckbox *dialog)
{
    return qobject_cast<QPushButton *>(part(dialog, 0)->itemAt(2)->widget());
}

QCheckBox *checkboxOf(const TipsDlgWithCheckbox *dialog)
{
    return qobject_cast<QCheckBox *>(bottomRowOf(dialog)->itemAt(0)->widget());
}

QPushButton *buttonOf(const TipsDlgWithCheckbox *dialog)
{
    return qobject_cast<QPushButton *>(bottomRowOf(dialog)->itemAt(1)->widget());
}

bool isStretch(QLayoutItem *item, Qt::Orientation orientation)
{
    return item->spacerItem() && item->expandingDirections().testFlag(orientation);
}

/// Writes down the signals of a dialog as they come, with what they carry and whether the dialog is visible.
class Reporter : public QObject
{
public:
    explicit Reporter(TipsDlgWithCheckbox *dialog)
        : m_dialog(dialog)
    {
        connect(dialog, &TipsDlgWithCheckbox::closeMsgBox, this,
                [this] { note(QStringLiteral("closeMsgBox")); });
        connect(dialog, &TipsDlgWithCheckbox::sig_BtnClicked, this,
                [this] { note(QStringLiteral("button")); });
        connect(dialog, &TipsDlgWithCheckbox::sig_checkboxStateChanged, this, [this](bool checked) {
            note(checked ? QStringLiteral("checkbox true") : QStringLiteral("checkbox false"));
        });
    }

    QStringList notes;

private:
    void note(const QString &text)
    {
        notes << (m_dialog->isVisible() ? text + QLatin1String(", visible") : text);
    }

    TipsDlgWithCheckbox *m_dialog;
};

bool isDeletedNow(const QPointer<TipsDlgWithCheckbox> &dialog)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return dialog.isNull();
}

} // namespace

Q_DECLARE_METATYPE(Action)

class tst_TipsDlgWithCheckbox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void buildsItsWindow_data();
    void buildsItsWindow();
    void boundsItsHeight_data();
    void boundsItsHeight();
    void paintsItsBackground();
    void laysOutTheParagraphForm();
    void laysOutTheLinesForm();
    void buildsTheTitleRow_data();
    void buildsTheTitleRow();
    void buildsTheLines();
    void otherNumbersOfLinesGiveNone_data();
    void otherNumbersOfLinesGiveNone();
    void buildsTheBottomRow_data();
    void buildsTheBottomRow();
    void setsItsTexts();

    void closeButtonTellsNothingElse();
    void buttonTells_data();
    void buttonTells();
    void setStateIsKept();
    void execEndsInEveryWay_data();
    void execEndsInEveryWay();
    void refusedCloseEndsTheLoop_data();
    void refusedCloseEndsTheLoop();
    void secondDialogFromASlot();
    void hiddenWhileBeingShown();
    void applicationQuits();
};

void tst_TipsDlgWithCheckbox::buildsItsWindow_data()
{
    QTest::addColumn<bool>("lines");
    QTest::newRow("paragraph") << false;
    QTest::newRow("lines") << true;
}

void tst_TipsDlgWithCheckbox::buildsItsWindow()
{
    QFETCH(const bool, lines);
    QWidget parent;
    const auto *dialog = lines ? newLines(4, &parent) : newTip(&parent);
    QCOMPARE(dialog->parentWidget(), &parent);
    QCOMPARE(dialog->windowType(), Qt::Tool);
    QVERIFY(dialog->windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(dialog->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QVERIFY(dialog->testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(dialog->testAttribute(Qt::WA_DeleteOnClose));
    QCOMPARE(dialog->windowModality(), Qt::ApplicationModal);
    QCOMPARE(dialog->objectName(), QString());
    QCOMPARE(dialog->styleSheet(), QString());
    QVERIFY(!dialog->isVisible());
}

void tst_TipsDlgWithCheckbox::boundsItsHeight_data()
{
    QTest::addColumn<QSize>("asked");
    QTest::addColumn<QSize>("given");
    QTest::newRow("within") << QSize(400, 200) << QSize(420, 223);
    QTest::newRow("least") << QSize(400, 187) << QSize(420, 210);
    QTest::newRow("too low") << QSize(400, 100) << QSize(420, 210);
    QTest::newRow("most") << QSize(400, 625) << QSize(420, 648);
    QTest::newRow("too high") << QSize(400, 2000) << QSize(420, 648);
    QTest::newRow("nothing") << QSize(0, 0) << QSize(20, 210);
    QTest::newRow("negative") << QSize(-1, -1000) << QSize(19, 210);
}

void tst_TipsDlgWithCheckbox::boundsItsHeight()
{
    QFETCH(const QSize, asked);
    QFETCH(const QSize, given);
    const ExpectedWarnings negativeSizes("Negative sizes");
    const std::unique_ptr<TipsDlgWithCheckbox> dialog(newTip(nullptr, asked));
    QCOMPARE(dialog->size(), given);
    QCOMPARE(dialog->minimumSize(), QSize(given.width(), 210));
    QCOMPARE(dialog->maximumSize(), QSize(given.width(), 648));
    dialog->resize(1000, 1000);
    QCOMPARE(dialog->size(), QSize(given.width(), 648));
}

void tst_TipsDlgWithCheckbox::paintsItsBackground()
{
    QString path = QStringLiteral(":/surface/resources/surface/common/dialog_bg.png");
    QVERIFY(QFile::exists(path));
    const std::unique_ptr<TipsDlgWithCheckbox> dialog(newTip());
    QImage painted(dialog->size(), QImage::Format_ARGB32_Premultiplied);
    painted.fill(Qt::transparent);
    dialog->render(&painted, QPoint(), QRegion(), QWidget::RenderFlags());
    QImage expected(dialog->size(), QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    QPainter(&expected).drawImage(
        0, 0, totalcommon::NinePatch(path, 17, 14, 19, 22, expected.width(), expected.height()));
    QCOMPARE(differingPixels(painted, expected), 0);
    QVERIFY(expected.pixelColor(210, 140).alpha() > 0);
}

void tst_TipsDlgWithCheckbox::laysOutTheParagraphForm()
{
    const std::unique_ptr<TipsDlgWithCheckbox> dialog(newTip());
    const QVBoxLayout *layout = mainLayoutOf(dialog.get());
    QCOMPARE(layout->contentsMargins(), QMargins(33, 30, 35, 34));
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->count(), 4);
    QVERIFY(qobject_cast<QHBoxLayout *>(layout->itemAt(0)->layout()));
    const auto *column = qobject_cast<QVBoxLayout *>(layout->itemAt(1)->layout());
    QVERIFY(column);
    QVERIFY(isStretch(layout->itemAt(2), Qt::Vertical));
    QVERIFY(qobject_cast<QHBoxLayout *>(layout->itemAt(3)->layout()));

    QCOMPARE(column->contentsMargins(), QMargins(0, 8, 0, 0));
    QCOMPARE(column->spacing(), 0);
    QCOMPARE(column->count(), 1);
    const auto *content = qobject_cast<QLabel *>(column->itemAt(0)->widget());
    QCOMPARE(content->text(), QStringLiteral("Content"));
    QCOMPARE(content->minimumHeight(), 78);
    QCOMPARE(content->maximumHeight(), 78);
    QCOMPARE(content->alignment(), Qt::AlignLeft);
    QCOMPARE(content->styleSheet(),
             QStringLiteral("QLabel \n{ \n background: transparent;font-size: 14px;\n font-weight: Normal; \n"
                            " line-height:30px; \n color: #78797B; \nqproperty-wordWrap: true;\n"
                            "text-align: left; \n}"));

    QWidgetList children;
    const QObjectList all = dialog->children();
    for (QObject *child : all) {
        if (child->isWidgetType())
            children << static_cast<QWidget *>(child);
    }
    QCOMPARE(children,
             QWidgetList({titleOf(dialog.get()), closeButtonOf(dialog.get()), column->itemAt(0)->widget(),
                          checkboxOf(dialog.get()), buttonOf(dialog.get())}));
    dialog->show();
    QVERIFY(content->wordWrap());
}

void tst_TipsDlgWithCheckbox::laysOutTheLinesForm()
{
    const std::unique_ptr<TipsDlgWithCheckbox> dialog(newLines(4));
    const QVBoxLayout *layout = mainLayoutOf(dialog.get());
    QCOMPARE(layout->contentsMargins(), QMargins(33, 30, 35, 34));
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->count(), 4);
    QWidgetList areas;
    for (const int index : {0, 1, 3}) {
        areas << layout->itemAt(index)->widget();
        QCOMPARE(areas.last()->metaObject(), &QWidget::staticMetaObject);
        QCOMPARE(areas.last()->parentWidget(), dialog.get());
    }
    QVERIFY(isStretch(layout->itemAt(2), Qt::Vertical));
    QCOMPARE(areas.at(0)->minimumHeight(), 20);
    QCOMPARE(areas.at(0)->maximumHeight(), 20);
    QCOMPARE(areas.at(2)->minimumHeight(), 36);
    QCOMPARE(areas.at(2)->maximumHeight(), 36);
    QVERIFY(qobject_cast<QHBoxLayout *>(areas.at(0)->layout()));
    QVERIFY(qobject_cast<QVBoxLayout *>(areas.at(1)->layout()));
    QVERIFY(qobject_cast<QHBoxLayout *>(areas.at(2)->layout()));
    QCOMPARE(dialog->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly), areas);
}

void tst_TipsDlgWithCheckbox::buildsTheTitleRow_data()
{
    buildsItsWindow_data();
}

void tst_TipsDlgWithCheckbox::buildsTheTitleRow()
{
    QFETCH(const bool, lines);
    const std::unique_ptr<TipsDlgWithCheckbox> dialog(lines ? newLines(4) : newTip());
    const QLayout *row = part(dialog.get(), 0);
    QCOMPARE(row->contentsMargins(), QMargins());
    QCOMPARE(row->count(), 3);
    QVERIFY(isStretch(row->itemAt(1), Qt::Horizontal));

    const QLabel *title = titleOf(dialog.get());
    QCOMPARE(title->text(), QStringLiteral("Title"));
    QVERIFY(title->hasScaledContents());
    QCOMPARE(title->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(title->styleSheet(), QStringLiteral("QLabel \n{ \n background: transparent; font-size: 16px;\n"
                                                 " font-weight: Medium; \n color: #1F1F22; \n}"));

    const QPushButton *close = closeButtonOf(dialog.get());
    QCOMPARE(close->minimumSize(), QSize(20, 20));
    QCOMPARE(close->maximumSize(), QSize(20, 20));
    QCOMPARE(close->focusPolicy(), Qt::NoFocus);
    QCOMPARE(close->cursor().shape(), Qt::PointingHandCursor);
    QVERIFY(!close->isHidden());
    QCOMPARE(close->styleSheet(),
             QStringLiteral("QPushButton {background: transparent;"
                            "border-image:url(:/surface/resources/surface/common/close.png);}\n"
                            "QPushButton:hover {background: transparent;"
                            "border-image:url(:/surface/resources/surface/common/close_hover.png);}"));
}

void tst_TipsDlgWithCheckbox::buildsTheLines()
{
    const std::unique_ptr<TipsDlgWithCheckbox> dialog(newLines(4));
    const QLayout *column = part(dialog.get(), 1);
    QCOMPARE(column->contentsMargins(), QMargins(0, 12, 0, 0));
    QCOMPARE(column->spacing(), 0);
    QCOMPARE(column->count(), 4);
    for (int i = 0; i < 3; ++i) {
        const auto *line = qobject_cast<QLabel *>(column->itemAt(i)->widget());
        QVERIFY(line);
        QCOMPARE(line->text(), QStringLiteral("Line %1").arg(i));
        QCOMPARE(line->minimumHeight(), 26);
        QCOMPARE(line->maximumHeight(), 26);
        QCOMPARE(line->alignment(), Qt::AlignLeft);
        QCOMPARE(line->styleSheet(), QLatin1String(kLineStyle));
    }
    const auto *warning = qobject_cast<QHBoxLayout *>(column->itemAt(3)->layout());
    QVERIFY(warning);
    QCOMPARE(warning->contentsMargins(), QMargins());
    QCOMPARE(warning->spacing(), 0);
    QCOMPARE(warning->count(), 2);
    const auto *iconColumn = qobject_cast<QVBoxLayout *>(warning->itemAt(0)->layout());
    QVERIFY(iconColumn);
    QCOMPARE(iconColumn->contentsMargins(), QMargins(0, 3, 0, 0));
    QCOMPARE(iconColumn->spacing(), 0);
    QCOMPARE(iconColumn->count(), 2);
    QVERIFY(isStretch(iconColumn->itemAt(1), Qt::Vertical));
    const auto *icon = qobject_cast<QLabel *>(iconColumn->itemAt(0)->widget());
    QCOMPARE(icon->minimumSize(), QSize(13, 14));
    QCOMPARE(icon->maximumSize(), QSize(13, 14));
    QVERIFY(!icon->pixmap(Qt::ReturnByValue).isNull());
    const auto *text = qobject_cast<QLabel *>(warning->itemAt(1)->widget());
    QCOMPARE(text->text(), QStringLiteral("Line 3"));
    QCOMPARE(text->minimumHeight(), 40);
    QCOMPARE(text->maximumHeight(), 40);
    QCOMPARE(text->alignment(), Qt::AlignLeft);
    QCOMPARE(text->styleSheet(), QLatin1String(kLineStyle));

    dialog->show();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(icon->y() - text->y(), 3);
    QVERIFY(text->wordWrap());
}

void tst_TipsDlgWithCheckbox::otherNumbersOfLinesGiveNone_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, 3, 5})
        QTest::addRow("%d", count) << count;
}

void tst_TipsDlgWithCheckbox::otherNumbersOfLinesGiveNone()
{
    QFETCH(const int, count);
    const std::unique_ptr<TipsDlgWithCheckbox> dialog(newLines(count));
    dialog->show();
    QCOMPARE(part(dialog.get(), 1)->count(), 0);
    QCOMPARE(dialog->findChildren<QLabel *>().size(), 1);
    QVERIFY(buttonOf(dialog.get())->isVisible());
}

void tst_TipsDlgWithCheckbox::buildsTheBottomRow_data()
{
    buildsItsWindow_data();
}

void tst_TipsDlgWithCheckbox::buildsTheBottomRow()
{
    QFETCH(const bool, lines);
    const std::unique_ptr<TipsDlgWithCheckbox> dialog(lines ? newLines(4) : newTip());
    const QLayout *row = bottomRowOf(dialog.get());
    QCOMPARE(row->contentsMargins(), QMargins());
    QCOMPARE(row->count(), 2);

    const QCheckBox *checkbox = checkboxOf(dialog.get());
    QCOMPARE(checkbox->text(), QStringLiteral("Not again"));
    QVERIFY(checkbox->isCheckable());
    QVERIFY(!checkbox->isChecked());
    QCOMPARE(
        checkbox->styleSheet(),
        QStringLiteral(
            "QCheckBox \n{ \n color:#000000;\n font-size:14px;\n}\n"
            "QCheckBox::indicator \n{ \n width:18px;\n height:18px;\n}\n"
            "QCheckBox::indicator:unchecked \n{ \n "
            "border-image:url(:/resources/common_icons/uncheck.png);\n}\n"
            "QCheckBox::indicator:checked \n{ \n border-image:url(:/resources/common_icons/check.png);\n}"));

    const QPushButton *button = buttonOf(dialog.get());
    QCOMPARE(button->text(), QStringLiteral("OK"));
    QCOMPARE(button->minimumSize(), QSize(88, 36));
    QCOMPARE(button->maximumSize(), QSize(88, 36));
    QCOMPARE(button->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(button->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QVERIFY(button->testAttribute(Qt::WA_LayoutUsesWidgetRect));
    QCOMPARE(button->focusPolicy(), Qt::NoFocus);
    QCOMPARE(button->cursor().shape(), Qt::PointingHandCursor);
    const QString block = QStringLiteral("QPushButton%1 \n{ \n background-color:%2;\n border-radius:4px;\n"
                                         " font-size: 14px;\n color:#FFFFFF;\n padding-left: 10px;\n"
                                         " padding-right:10px;\n}");
    QCOMPARE(button->styleSheet(), block.arg(QString(), QStringLiteral("#4257FF")) + QLatin1Char('\n') +
                                       block.arg(QStringLiteral(":hover"), QStringLiteral("#6778FF")) +
                                       QLatin1Char('\n') +
                                       block.arg(QStringLiteral(":pressed"), QStringLiteral("#3B4EE5")));
}

void tst_TipsDlgWithCheckbox::setsItsTexts()
{
    const std::unique_ptr<TipsDlgWithCheckbox> paragraph(newTip());
    paragraph->setTitle(QStringLiteral("New title"));
    paragraph->setContent(QStringLiteral("New content"));
    QCOMPARE(titleOf(paragraph.get())->text(), QStringLiteral("New title"));
    QCOMPARE(qobject_cast<QLabel *>(part(paragraph.get(), 1)->itemAt(0)->widget())->text(),
             QStringLiteral("New content"));

    const std::unique_ptr<TipsDlgWithCheckbox> lines(newLines(4));
    lines->setTitle(QStringLiteral("New title"));
    lines->setContent(QStringLiteral("Lost"));
    QCOMPARE(titleOf(lines.get())->text(), QStringLiteral("New title"));
    const auto labels = lines->findChildren<QLabel *>();
    for (const QLabel *label : labels)
        QVERIFY(label->text() != QLatin1String("Lost"));
}

void tst_TipsDlgWithCheckbox::closeButtonTellsNothingElse()
{
    const QPointer<TipsDlgWithCheckbox> dialog = newTip();
    Reporter reporter(dialog);
    dialog->setCheckboxState(true);
    dialog->show();
    InsideLoop::click(closeButtonOf(dialog));
    QCOMPARE(reporter.notes, QStringList(QStringLiteral("closeMsgBox")));
    QVERIFY(isDeletedNow(dialog));
}

void tst_TipsDlgWithCheckbox::buttonTells_data()
{
    QTest::addColumn<bool>("lines");
    QTest::addColumn<int>("ticks");
    QTest::addColumn<QStringList>("notes");
    const QStringList button{QStringLiteral("button")};
    const QStringList both{QStringLiteral("checkbox true"), QStringLiteral("button")};
    QTest::newRow("paragraph") << false << 0 << button;
    QTest::newRow("paragraph, ticked") << false << 1 << both;
    QTest::newRow("paragraph, ticked and unticked") << false << 2 << button;
    QTest::newRow("lines") << true << 0 << button;
    QTest::newRow("lines, ticked") << true << 1 << both;
    QTest::newRow("lines, ticked and unticked") << true << 2 << button;
}

void tst_TipsDlgWithCheckbox::buttonTells()
{
    QFETCH(const bool, lines);
    QFETCH(const int, ticks);
    QFETCH(const QStringList, notes);
    const QPointer<TipsDlgWithCheckbox> dialog = lines ? newLines(4) : newTip();
    Reporter reporter(dialog);
    dialog->show();
    for (int i = 0; i < ticks; ++i) {
        QCheckBox *box = checkboxOf(dialog);
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(9, box->height() / 2));
        QCOMPARE(box->isChecked(), i % 2 == 0);
    }
    QCOMPARE(reporter.notes, QStringList());
    InsideLoop::click(buttonOf(dialog));
    QCOMPARE(reporter.notes, notes);
    QVERIFY(isDeletedNow(dialog));
}

void tst_TipsDlgWithCheckbox::setStateIsKept()
{
    for (const bool state : {true, false}) {
        const QPointer<TipsDlgWithCheckbox> dialog = newTip();
        Reporter reporter(dialog);
        dialog->setCheckboxState(!state);
        dialog->setCheckboxState(state);
        QCOMPARE(checkboxOf(dialog)->isChecked(), state);
        InsideLoop::run([&] { InsideLoop::click(buttonOf(dialog)); });
        dialog->exec();
        QStringList expected{QStringLiteral("button")};
        if (state)
            expected.prepend(QStringLiteral("checkbox true"));
        QCOMPARE(reporter.notes, expected);
        QVERIFY(isDeletedNow(dialog));
    }

    // A box ticked from outside, which is no click, is not noticed.
    const QPointer<TipsDlgWithCheckbox> dialog = newTip();
    Reporter reporter(dialog);
    checkboxOf(dialog)->setChecked(true);
    dialog->show();
    InsideLoop::click(buttonOf(dialog));
    QCOMPARE(reporter.notes, QStringList(QStringLiteral("button")));
    QVERIFY(isDeletedNow(dialog));
}

void tst_TipsDlgWithCheckbox::execEndsInEveryWay_data()
{
    QTest::addColumn<Action>("end");
    QTest::addColumn<bool>("deleted");
    QTest::newRow("close button") << Action([](TipsDlgWithCheckbox *dialog) {
        InsideLoop::click(closeButtonOf(dialog));
    }) << true;
    QTest::newRow("button") << Action([](TipsDlgWithCheckbox *dialog) {
        InsideLoop::click(buttonOf(dialog));
    }) << true;
    QTest::newRow("forceToExit()") << Action([](TipsDlgWithCheckbox *dialog) { dialog->forceToExit(); })
                                   << true;
    QTest::newRow("hide()") << Action([](TipsDlgWithCheckbox *dialog) { dialog->hide(); }) << false;
    QTest::newRow("native hide") << Action([](TipsDlgWithCheckbox *dialog) {
        dialog->windowHandle()->hide();
    }) << false;
    QTest::newRow("setVisible()") << Action([](QWidget *dialog) { dialog->setVisible(false); }) << false;
    QTest::newRow("setVisible(), of which it does not hear") << Action([](QWidget *dialog) {
        const InsideLoop::EventHook hook(dialog, QEvent::HideToParent, [](QEvent *) { return true; });
        dialog->setVisible(false);
    }) << false;
    QTest::newRow("close()") << Action([](TipsDlgWithCheckbox *dialog) { dialog->close(); }) << true;
    QTest::newRow("deleted") << Action([](TipsDlgWithCheckbox *dialog) { delete dialog; }) << true;
    QTest::newRow("deleted later") << Action([](TipsDlgWithCheckbox *dialog) { dialog->deleteLater(); })
                                   << true;
    QTest::newRow("parent deleted") << Action([](TipsDlgWithCheckbox *dialog) {
        delete dialog->parentWidget();
    }) << true;
    QTest::newRow("deleted by the first signal") << Action([](TipsDlgWithCheckbox *dialog) {
        dialog->setCheckboxState(true);
        connect(dialog, &TipsDlgWithCheckbox::sig_checkboxStateChanged, dialog, [dialog] { delete dialog; });
        connect(dialog, &TipsDlgWithCheckbox::sig_BtnClicked, dialog, [] { QFAIL("The dialog is gone"); });
        InsideLoop::click(buttonOf(dialog));
    }) << true;
    QTest::newRow("deleted by the close button") << Action([](TipsDlgWithCheckbox *dialog) {
        connect(dialog, &TipsDlgWithCheckbox::closeMsgBox, dialog, [dialog] { delete dialog; });
        InsideLoop::click(closeButtonOf(dialog));
    }) << true;
    QTest::newRow("deleted while it closes") << Action([](TipsDlgWithCheckbox *dialog) {
        auto *hook = new InsideLoop::EventHook(dialog, QEvent::Close, [dialog](QEvent *) {
            delete dialog;
            return true;
        });
        hook->setParent(qApp);
        InsideLoop::click(buttonOf(dialog));
    }) << true;
}

void tst_TipsDlgWithCheckbox::execEndsInEveryWay()
{
    QFETCH(const Action, end);
    QFETCH(const bool, deleted);
    const QPointer<QWidget> parent = new QWidget;
    const QPointer<TipsDlgWithCheckbox> dialog = newTip(parent);
    InsideLoop::run([&] {
        QVERIFY(dialog->isVisible());
        end(dialog);
    });
    dialog->exec();
    QVERIFY(!dialog || !dialog->isVisible());
    QCOMPARE(isDeletedNow(dialog), deleted);
    if (dialog) {
        // It is idle again: the next run waits for its own end.
        InsideLoop::run([&] { dialog->forceToExit(); });
        dialog->exec();
    }
    delete parent;
}

void tst_TipsDlgWithCheckbox::refusedCloseEndsTheLoop_data()
{
    QTest::addColumn<Action>("end");
    QTest::newRow("close button") << Action(
        [](TipsDlgWithCheckbox *dialog) { InsideLoop::click(closeButtonOf(dialog)); });
    QTest::newRow("button") << Action(
        [](TipsDlgWithCheckbox *dialog) { InsideLoop::click(buttonOf(dialog)); });
    QTest::newRow("forceToExit()") << Action([](TipsDlgWithCheckbox *dialog) { dialog->forceToExit(); });
}

void tst_TipsDlgWithCheckbox::refusedCloseEndsTheLoop()
{
    QFETCH(const Action, end);
    const std::unique_ptr<TipsDlgWithCheckbox> dialog(newTip());
    InsideLoop::EventHook hook(dialog.get(), QEvent::Close, [](QEvent *event) {
        event->ignore();
        return true;
    });
    InsideLoop::run([&] {
        end(dialog.get());
        // It ends a loop that goes on.
        QTimer::singleShot(0, dialog.get(), &QWidget::hide);
    });
    dialog->exec();
    QVERIFY(dialog->isVisible());
}

void tst_TipsDlgWithCheckbox::secondDialogFromASlot()
{
    const QPointer<TipsDlgWithCheckbox> first = newTip();
    const QPointer<TipsDlgWithCheckbox> second = newLines(4);
    connect(first, &TipsDlgWithCheckbox::sig_BtnClicked, this, [&] {
        InsideLoop::run([&] { InsideLoop::click(buttonOf(second)); });
        second->exec();
    });
    InsideLoop::run([&] { InsideLoop::click(buttonOf(first)); });
    first->exec();
    QVERIFY(isDeletedNow(first));
    QVERIFY(isDeletedNow(second));
}

void tst_TipsDlgWithCheckbox::hiddenWhileBeingShown()
{
    const std::unique_ptr<TipsDlgWithCheckbox> dialog(newTip());
    InsideLoop::EventHook hook(dialog.get(), QEvent::Show, [&](QEvent *) {
        dialog->hide();
        return false;
    });
    dialog->exec();
    QVERIFY(!dialog->isVisible());
}

void tst_TipsDlgWithCheckbox::applicationQuits()
{
    const std::unique_ptr<TipsDlgWithCheckbox> dialog(newTip());
    bool returned = false;
    InsideLoop::run([&] {
        InsideLoop::run([] { QCoreApplication::exit(); });
        dialog->exec();
        returned = true;
    });
    QCoreApplication::exec();
    QVERIFY(returned);
}

ORV_TEST_MAIN(tst_TipsDlgWithCheckbox)

#include "tst_tipsdlgwithcheckbox.moc"
