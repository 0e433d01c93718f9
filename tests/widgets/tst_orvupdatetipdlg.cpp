#include "insideloop.h"
#include "orvcommonlib.h"
#include "orvupdatetipdlg.h"
#include "pictures.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtCore/QTranslator>
#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>
#include <QtGui/QPainter>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <memory>

namespace {

constexpr QSize kSize(436, 230);

OrvUpdateTipDlg *newDialog(bool compactButtons = false, bool showCancelButton = true,
                           QWidget *parent = nullptr, const QString &backgroundImage = QString())
{
    return new OrvUpdateTipDlg(kSize, backgroundImage, 17, 14, 19, 22, parent, QStringLiteral("Update"),
                               QStringLiteral("Later"), compactButtons, showCancelButton);
}

std::unique_ptr<OrvUpdateTipDlg> makeDialog(bool compactButtons = false, bool showCancelButton = true)
{
    return std::unique_ptr<OrvUpdateTipDlg>(newDialog(compactButtons, showCancelButton));
}

QWidget *areaOf(const OrvUpdateTipDlg *dialog, int index)
{
    return dialog->layout()->itemAt(index)->widget();
}

template<class Widget>
Widget *widgetIn(const QLayout *layout, int index)
{
    return qobject_cast<Widget *>(layout->itemAt(index)->widget());
}

QLabel *titleOf(const OrvUpdateTipDlg *dialog)
{
    return widgetIn<QLabel>(areaOf(dialog, 0)->layout()->itemAt(0)->layout(), 0);
}

QPushButton *closeButtonOf(const OrvUpdateTipDlg *dialog)
{
    return widgetIn<QPushButton>(areaOf(dialog, 0)->layout()->itemAt(1)->layout(), 0);
}

QLabel *contentOf(const OrvUpdateTipDlg *dialog)
{
    return widgetIn<QLabel>(areaOf(dialog, 1)->layout(), 0);
}

QLabel *linkOf(const OrvUpdateTipDlg *dialog)
{
    return widgetIn<QLabel>(areaOf(dialog, 1)->layout(), 2);
}

QPushButton *cancelButtonOf(const OrvUpdateTipDlg *dialog)
{
    return widgetIn<QPushButton>(areaOf(dialog, 3)->layout(), 1);
}

QPushButton *confirmButtonOf(const OrvUpdateTipDlg *dialog)
{
    return widgetIn<QPushButton>(areaOf(dialog, 3)->layout(), 2);
}

bool isStretch(QLayoutItem *item, Qt::Orientation orientation)
{
    return item->spacerItem() && item->expandingDirections().testFlag(orientation);
}

/// Translates the dialog's own text and no other.
class GermanTexts : public QTranslator
{
public:
    bool isEmpty() const override { return false; }

    QString translate(const char *context, const char *sourceText, const char *, int) const override
    {
        const bool known =
            qstrcmp(context, "OrvUpdateTipDlg") == 0 && qstrcmp(sourceText, "Update Tips") == 0;
        return known ? QStringLiteral("Hinweise") : QString();
    }
};

} // namespace

class tst_OrvUpdateTipDlg : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void openLink(const QUrl &url) { m_openedLinks << url; }

private Q_SLOTS:
    void buildsItsWindow();
    void paintsItsBackground();
    void laysOutItsAreas_data();
    void laysOutItsAreas();
    void buildsTheTitleArea();
    void buildsTheTextArea();
    void buildsTheButtonArea_data();
    void buildsTheButtonArea();
    void hidesTheCancelButton();
    void startsWithThreeEqualTexts();
    void setsItsTexts();
    void linkOpensOutside();

    void buttonsTellThenClose_data();
    void buttonsTellThenClose();
    void destroyedByASlot_data();
    void destroyedByASlot();
    void closesWithoutASignal();
    void acceptsAbsurdArguments();

private:
    QList<QUrl> m_openedLinks;
};

void tst_OrvUpdateTipDlg::buildsItsWindow()
{
    QWidget parent;
    const OrvUpdateTipDlg *dialog = newDialog(false, true, &parent);
    QCOMPARE(dialog->parentWidget(), &parent);
    QCOMPARE(dialog->objectName(), QStringLiteral("OrvUpdateTipDlg"));
    QCOMPARE(dialog->minimumSize(), kSize);
    QCOMPARE(dialog->maximumSize(), kSize);
    QCOMPARE(dialog->size(), kSize);
    QCOMPARE(dialog->windowType(), Qt::Tool);
    QVERIFY(dialog->windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(dialog->testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(dialog->testAttribute(Qt::WA_DeleteOnClose));
    QCOMPARE(dialog->windowModality(), Qt::ApplicationModal);
    QVERIFY(!dialog->isVisible());
}

void tst_OrvUpdateTipDlg::paintsItsBackground()
{
    QString path = savedImage(gradientImage(64, 64), QStringLiteral("update_bg.png"));
    const std::unique_ptr<OrvUpdateTipDlg> dialog(newDialog(false, true, nullptr, path));
    QImage painted(kSize, QImage::Format_ARGB32_Premultiplied);
    painted.fill(Qt::transparent);
    dialog->render(&painted, QPoint(), QRegion(), QWidget::RenderFlags());
    QImage expected(kSize, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    QPainter(&expected).drawImage(
        0, 0, totalcommon::NinePatch(path, 17, 14, 19, 22, kSize.width(), kSize.height()));
    QCOMPARE(differingPixels(painted, expected), 0);
}

void tst_OrvUpdateTipDlg::laysOutItsAreas_data()
{
    QTest::addColumn<bool>("compact");
    QTest::addColumn<int>("textHeight");
    QTest::newRow("wide buttons") << false << 52;
    QTest::newRow("compact buttons") << true << 66;
}

void tst_OrvUpdateTipDlg::laysOutItsAreas()
{
    QFETCH(const bool, compact);
    QFETCH(const int, textHeight);
    const auto dialog = makeDialog(compact);
    const auto *layout = qobject_cast<QVBoxLayout *>(dialog->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(17, 14, 19, 22));
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->count(), 4);
    QCOMPARE(layout->itemAt(2)->spacerItem()->sizeHint(), QSize(0, 24));
    const QVector<QPair<int, int>> heights{{0, 56}, {1, textHeight}, {3, 60}};
    QWidgetList areas;
    for (const auto &[index, height] : heights) {
        areas << areaOf(dialog.get(), index);
        QCOMPARE(areas.last()->minimumSize(), QSize(400, height));
        QCOMPARE(areas.last()->maximumSize(), QSize(400, height));
        QCOMPARE(areas.last()->metaObject(), &QWidget::staticMetaObject);
    }
    QCOMPARE(dialog->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly), areas);
}

void tst_OrvUpdateTipDlg::buildsTheTitleArea()
{
    const auto dialog = makeDialog();
    const auto *row = qobject_cast<QHBoxLayout *>(areaOf(dialog.get(), 0)->layout());
    QVERIFY(row);
    QCOMPARE(row->contentsMargins(), QMargins(24, 24, 24, 0));
    QCOMPARE(row->spacing(), 0);
    QCOMPARE(row->count(), 2);
    const QVector<QMargins> margins{QMargins(), QMargins(0, 4, 0, 0)};
    for (int i = 0; i < 2; ++i) {
        const auto *column = qobject_cast<QVBoxLayout *>(row->itemAt(i)->layout());
        QVERIFY(column);
        QCOMPARE(column->contentsMargins(), margins.at(i));
        QCOMPARE(column->spacing(), 0);
        QCOMPARE(column->count(), 2);
        QVERIFY(isStretch(column->itemAt(1), Qt::Vertical));
    }

    const QLabel *title = titleOf(dialog.get());
    QCOMPARE(title->minimumWidth(), 380);
    QCOMPARE(title->maximumWidth(), 380);
    QCOMPARE(title->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(title->styleSheet(), QStringLiteral("QLabel \n{ \n font-size: 16px;\n font-weight: DemiBold; \n"
                                                 " color: #1F1F22; \n line-height: 20px; \n}"));

    const QPushButton *close = closeButtonOf(dialog.get());
    QCOMPARE(close->minimumSize(), QSize(20, 20));
    QCOMPARE(close->maximumSize(), QSize(20, 20));
    QCOMPARE(close->cursor().shape(), Qt::PointingHandCursor);
    QCOMPARE(
        close->styleSheet(),
        QStringLiteral("QPushButton {border-image:url(:/resources/common_icons/close.png);}\n"
                       "QPushButton:hover {border-image:url(:/resources/common_icons/close_hover.png);}"));
}

void tst_OrvUpdateTipDlg::buildsTheTextArea()
{
    const auto dialog = makeDialog();
    const auto *column = qobject_cast<QVBoxLayout *>(areaOf(dialog.get(), 1)->layout());
    QVERIFY(column);
    QCOMPARE(column->contentsMargins(), QMargins(24, 0, 24, 0));
    QCOMPARE(column->spacing(), 0);
    QCOMPARE(column->count(), 3);
    QCOMPARE(column->itemAt(1)->spacerItem()->sizeHint(), QSize(0, 12));

    const QLabel *content = contentOf(dialog.get());
    QCOMPARE(content->alignment(), Qt::AlignLeft);
    QCOMPARE(content->styleSheet(),
             QStringLiteral("QLabel \n{ \n font-size: 14px;\n font-weight: normal; \n color: #78797B; \n"
                            " line-height: 22px; \nqproperty-wordWrap: true;\ntext-align: left; \n}"));
    const QLabel *link = linkOf(dialog.get());
    QCOMPARE(link->alignment(), Qt::AlignLeft);
    QCOMPARE(link->styleSheet(), QStringLiteral("QLabel \n{ \n font-size: 16px;\n font-weight: normal; \n"
                                                " color: #4257FF; \n line-height: 20px; \n}"));
    QVERIFY(link->openExternalLinks());
    QVERIFY(!content->openExternalLinks());
    dialog->show();
    QVERIFY(content->wordWrap());
    QVERIFY(!link->wordWrap());
}

void tst_OrvUpdateTipDlg::buildsTheButtonArea_data()
{
    QTest::addColumn<bool>("compact");
    QTest::addColumn<QSize>("size");
    QTest::newRow("wide") << false << QSize(116, 36);
    QTest::newRow("compact") << true << QSize(97, 36);
}

void tst_OrvUpdateTipDlg::buildsTheButtonArea()
{
    QFETCH(const bool, compact);
    QFETCH(const QSize, size);
    const auto dialog = makeDialog(compact);
    const auto *row = qobject_cast<QHBoxLayout *>(areaOf(dialog.get(), 3)->layout());
    QVERIFY(row);
    QCOMPARE(row->contentsMargins(), QMargins(24, 0, 24, 24));
    QCOMPARE(row->spacing(), 12);
    QCOMPARE(row->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(row->count(), 3);
    QVERIFY(isStretch(row->itemAt(0), Qt::Horizontal));

    const QPushButton *cancel = cancelButtonOf(dialog.get());
    QCOMPARE(cancel->text(), QStringLiteral("Later"));
    QCOMPARE(cancel->minimumSize(), size);
    QCOMPARE(cancel->maximumSize(), size);
    QCOMPARE(cancel->styleSheet(),
             QStringLiteral("QPushButton \n{ \n background-color:#FFFFFF;\n border:1px solid #EBECED;\n"
                            " border-radius:8px;\n font-size: 16px;\n color:#1F1F22;\n line-height: 16px;\n"
                            " font-weight: normal;\n}\n"
                            "QPushButton:hover \n{ \n background-color:#F5F5F5;\n font-size: 16px;\n"
                            " color:#1F1F22;\n}\n"
                            "QPushButton:pressed \n{ \n background-color:#EBECED;\n font-size: 16px;\n"
                            " color:#1F1F22;\n}"));
    const QPushButton *confirm = confirmButtonOf(dialog.get());
    QCOMPARE(confirm->text(), QStringLiteral("Update"));
    QCOMPARE(confirm->minimumSize(), size);
    QCOMPARE(confirm->maximumSize(), size);
    QCOMPARE(confirm->styleSheet(),
             QStringLiteral("QPushButton \n{ \n background-color:#4257FF;\n border-radius:8px;\n"
                            " font-size: 16px;\n color:#FFFFFF;\n line-height: 16px;\n"
                            " font-weight: DemiBold;\n}\n"
                            "QPushButton:hover \n{ \n background-color:#6778FF;\n border-radius:8px;\n"
                            " font-size: 16px;\n color:#FFFFFF;\n}\n"
                            "QPushButton:pressed \n{ \n background-color:#3B4EE5;\n font-size: 16px;\n"
                            " color:#FFFFFF;\n}"));
    dialog->show();
    QVERIFY(cancel->isVisible());
    QCOMPARE(confirm->geometry().right() + 1, 400 - 24);
    QCOMPARE(confirm->x() - cancel->geometry().right() - 1, 12);
}

void tst_OrvUpdateTipDlg::hidesTheCancelButton()
{
    const auto dialog = makeDialog(false, false);
    dialog->show();
    QVERIFY(cancelButtonOf(dialog.get()));
    QVERIFY(cancelButtonOf(dialog.get())->isHidden());
    QVERIFY(confirmButtonOf(dialog.get())->isVisible());
    QCOMPARE(confirmButtonOf(dialog.get())->geometry().right() + 1, 400 - 24);
}

void tst_OrvUpdateTipDlg::startsWithThreeEqualTexts()
{
    const auto english = makeDialog();
    GermanTexts translator;
    QCoreApplication::installTranslator(&translator);
    const auto german = makeDialog();
    for (const auto &find : {&titleOf, &contentOf, &linkOf}) {
        QCOMPARE(find(english.get())->text(), QStringLiteral("Update Tips"));
        QCOMPARE(find(german.get())->text(), QStringLiteral("Hinweise"));
    }
}

void tst_OrvUpdateTipDlg::setsItsTexts()
{
    const auto dialog = makeDialog();
    dialog->setTitle(QStringLiteral("New version"));
    dialog->setContentTips(QStringLiteral("It is faster."));
    dialog->setNewVersionLink(QStringLiteral("<a href=\"https://example.com/\">See what is new</a>"));
    QCOMPARE(titleOf(dialog.get())->text(), QStringLiteral("New version"));
    QCOMPARE(contentOf(dialog.get())->text(), QStringLiteral("It is faster."));
    QCOMPARE(linkOf(dialog.get())->text(),
             QStringLiteral("<a href=\"https://example.com/\">See what is new</a>"));
}

void tst_OrvUpdateTipDlg::linkOpensOutside()
{
    QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "openLink");
    const auto dialog = makeDialog();
    QSignalSpy confirmed(dialog.get(), &OrvUpdateTipDlg::sig_confirmBtnClicked);
    QSignalSpy cancelled(dialog.get(), &OrvUpdateTipDlg::sig_cancelBtnClicked);
    QSignalSpy closed(dialog.get(), &OrvUpdateTipDlg::sig_closeMsgBox);
    dialog->setNewVersionLink(QStringLiteral("<a href=\"https://example.com/new\">See what is new</a>"));
    dialog->show();
    QLabel *link = linkOf(dialog.get());
    QTest::mouseClick(link, Qt::LeftButton, Qt::NoModifier, QPoint(12, link->fontMetrics().height() / 2));
    QCOMPARE(m_openedLinks, QList<QUrl>({QUrl(QStringLiteral("https://example.com/new"))}));
    QCOMPARE(confirmed.count() + cancelled.count() + closed.count(), 0);
    QVERIFY(dialog->isVisible());
    QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
}

void tst_OrvUpdateTipDlg::buttonsTellThenClose_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("close button") << 0;
    QTest::newRow("cancel button") << 1;
    QTest::newRow("confirm button") << 2;
}

void tst_OrvUpdateTipDlg::buttonsTellThenClose()
{
    QFETCH(const int, button);
    const QPointer<OrvUpdateTipDlg> dialog = newDialog();
    QVector<int> told;
    bool sawVisible = false;
    const auto tell = [&](int signal) {
        told << signal;
        sawVisible = dialog && dialog->isVisible();
    };
    connect(dialog, &OrvUpdateTipDlg::sig_closeMsgBox, this, [&] { tell(0); });
    connect(dialog, &OrvUpdateTipDlg::sig_cancelBtnClicked, this, [&] { tell(1); });
    connect(dialog, &OrvUpdateTipDlg::sig_confirmBtnClicked, this, [&] { tell(2); });
    dialog->show();
    QPushButton *const buttons[] = {closeButtonOf(dialog), cancelButtonOf(dialog), confirmButtonOf(dialog)};
    InsideLoop::click(buttons[button]);
    QCOMPARE(told, QVector<int>({button}));
    QVERIFY(sawVisible);
    QVERIFY(!dialog->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!dialog);
}

void tst_OrvUpdateTipDlg::destroyedByASlot_data()
{
    buttonsTellThenClose_data();
}

void tst_OrvUpdateTipDlg::destroyedByASlot()
{
    QFETCH(const int, button);
    const QPointer<OrvUpdateTipDlg> dialog = newDialog();
    connect(dialog, &OrvUpdateTipDlg::sig_closeMsgBox, this, [&] { delete dialog; });
    connect(dialog, &OrvUpdateTipDlg::sig_cancelBtnClicked, this, [&] { delete dialog; });
    connect(dialog, &OrvUpdateTipDlg::sig_confirmBtnClicked, this, [&] { delete dialog; });
    dialog->show();
    QPushButton *const buttons[] = {closeButtonOf(dialog), cancelButtonOf(dialog), confirmButtonOf(dialog)};
    InsideLoop::click(buttons[button]);
    QVERIFY(!dialog);
}

void tst_OrvUpdateTipDlg::closesWithoutASignal()
{
    const QPointer<OrvUpdateTipDlg> dialog = newDialog();
    QSignalSpy closed(dialog, &OrvUpdateTipDlg::sig_closeMsgBox);
    dialog->show();
    dialog->close();
    QCOMPARE(closed.count(), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!dialog);
}

void tst_OrvUpdateTipDlg::acceptsAbsurdArguments()
{
    const ExpectedWarnings negativeSizes("Negative sizes");
    for (const QSize size : {QSize(), QSize(0, 0), QSize(-10, -10), QSize(30, 20)}) {
        OrvUpdateTipDlg dialog(size, QStringLiteral("/nowhere.png"), -5, 4000, 0, -1, nullptr, QString(),
                               QString(), true, false);
        QCOMPARE(dialog.size(), size.expandedTo(QSize(0, 0)));
        dialog.setAttribute(Qt::WA_DeleteOnClose, false);
        const QSignalSpy confirmed(&dialog, &OrvUpdateTipDlg::sig_confirmBtnClicked);
        dialog.show();
        dialog.setNewVersionLink(QStringLiteral("<a href=\"\">"));
        QVERIFY(dialog.isVisible());
        QCOMPARE(dialog.layout()->contentsMargins().top(), 4000);
        dialog.findChildren<QPushButton *>().constLast()->click();
        QCOMPARE(confirmed.count(), 1);
        QVERIFY(!dialog.isVisible());
    }
}

ORV_TEST_MAIN(tst_OrvUpdateTipDlg)

#include "tst_orvupdatetipdlg.moc"
