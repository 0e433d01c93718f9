#include "customcomboxheader.h"
#include "gallerypage.h"
#include "mainwindow.h"
#include "pageview.h"
#include "reportlog.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>

#include <algorithm>
#include <memory>

namespace {

constexpr int kMoreThanAnyPage = 500;

bool isControl(QWidget *widget)
{
    const QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
    if (interface == nullptr)
        return false;
    switch (interface->role()) {
    case QAccessible::PushButton:
    case QAccessible::ButtonDropDown:
    case QAccessible::ButtonMenu:
    case QAccessible::CheckBox:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::List:
    case QAccessible::RadioButton:
    case QAccessible::Slider:
    case QAccessible::SpinBox:
    case QAccessible::Tree:
        return true;
    default:
        return false;
    }
}

bool isPartOfControl(const QWidget *widget)
{
    for (QWidget *above = widget->parentWidget(); above; above = above->parentWidget()) {
        if (isControl(above))
            return true;
    }
    return false;
}

// What there is to operate in the window as it stands. A header without its combo box is for the mouse alone.
QWidgetList controlsIn(const QWidget *window)
{
    QWidgetList controls;
    const QWidgetList widgets = window->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (widget->window() == window && widget->isVisible() && widget->isEnabled() && isControl(widget) &&
            !isPartOfControl(widget) && !qobject_cast<CustomComboxHeader *>(widget))
            controls << widget;
    }
    return controls;
}

// Whether anything of it lies within all that it stands in.
bool isInSight(const QWidget *widget)
{
    QRect rect = widget->rect();
    for (const QWidget *part = widget; !part->isWindow() && !rect.isEmpty(); part = part->parentWidget())
        rect = rect.translated(part->pos()) & part->parentWidget()->rect();
    return !rect.isEmpty();
}

QString described(const QWidget *widget)
{
    return QStringLiteral("%1 \"%2\"")
        .arg(QString::fromLatin1(widget->metaObject()->className()), widget->accessibleName());
}

} // namespace
Q_DECLARE_METATYPE(const GalleryPage *)

/// The gallery with a keyboard alone.
class tst_GalleryKeyboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void tabLeadsEverywhere_data();
    void tabLeadsEverywhere();
    void keysChoosePages();
    void keysCloseDialogs_data();
    void keysCloseDialogs();

private:
    QWidgetList walk(Qt::Key key, Qt::KeyboardModifiers modifiers);

    std::unique_ptr<ReportLog> m_log;
    std::unique_ptr<MainWindow> m_window;
    QWidget *m_start = nullptr;
};

void tst_GalleryKeyboard::initTestCase()
{
    m_log = std::make_unique<ReportLog>();
    m_window = std::make_unique<MainWindow>(m_log.get());
    m_window->openPage(GalleryPage::all().constFirst());
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_start = QApplication::focusWidget();
    QVERIFY(m_start); // the first key finds somebody
}

void tst_GalleryKeyboard::cleanupTestCase()
{
    m_window.reset();
    m_log.reset();
}

// From the start until the focus comes by where it has been.
QWidgetList tst_GalleryKeyboard::walk(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidgetList visited;
    m_start->setFocus(Qt::OtherFocusReason);
    QWidget *last = m_start;
    for (int step = 0; step < kMoreThanAnyPage; ++step) {
        QTest::keyClick(last, key, modifiers);
        QWidget *widget = QApplication::focusWidget();
        if (widget == nullptr)
            break;
        if (widget == last) // a date has parts of its own to go through
            continue;
        if (visited.contains(widget))
            break;
        visited << widget;
        last = widget;
        if (!isInSight(widget))
            qWarning("%s is out of sight", qPrintable(described(widget)));
    }
    return visited;
}

void tst_GalleryKeyboard::tabLeadsEverywhere_data()
{
    QTest::addColumn<const GalleryPage *>("page");
    const QVector<const GalleryPage *> pages = GalleryPage::all();
    for (const GalleryPage *page : pages)
        QTest::newRow(qPrintable(page->name())) << page;
}

void tst_GalleryKeyboard::tabLeadsEverywhere()
{
    QFETCH(const GalleryPage *, page);
    m_window->openPage(page);
    QCoreApplication::processEvents();

    const QWidgetList forwards = walk(Qt::Key_Tab, Qt::NoModifier);
    QCOMPARE(forwards.value(forwards.size() - 1), m_start);
    QStringList missed;
    const QWidgetList controls = controlsIn(m_window.get());
    QVERIFY(controls.size() > 3);
    for (const QWidget *control : controls) {
        if (!forwards.contains(const_cast<QWidget *>(control)) && !forwards.contains(control->focusProxy()))
            missed << described(control);
    }
    QVERIFY2(missed.isEmpty(), qPrintable(missed.join(QLatin1String("; "))));

    QWidgetList backwards = walk(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(backwards.value(backwards.size() - 1), m_start);
    backwards.removeLast();
    std::reverse(backwards.begin(), backwards.end());
    QCOMPARE(backwards, forwards.mid(0, forwards.size() - 1));
}

void tst_GalleryKeyboard::keysChoosePages()
{
    const QVector<const GalleryPage *> pages = GalleryPage::all();
    const PageView *first = m_window->openPage(pages.at(0));
    m_start->setFocus();
    QTest::keyClick(m_start, Qt::Key_Down);
    QVERIFY(m_window->currentView() != first);
    QCOMPARE(m_window->currentView(), m_window->view(pages.at(1)));
    QTest::keyClick(m_start, Qt::Key_Up);
    QCOMPARE(m_window->currentView(), first);
}

void tst_GalleryKeyboard::keysCloseDialogs_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("button"); // that opens one
    QTest::addColumn<int>("key");
    QTest::newRow("CommonPopupDialog") << "commonpopupdialog"
                                       << "exec()" << int(Qt::Key_Escape);
    QTest::newRow("PopupDlgWithMask") << "popupdlgwithmask"
                                      << "exec()" << int(Qt::Key_Return);
    QTest::newRow("TipsDlgWithCheckbox") << "tipsdlgwithcheckbox"
                                         << "exec()" << int(Qt::Key_Return);
    QTest::newRow("OrvUpdateTipDlg") << "orvupdatetipdlg"
                                     << "show()" << int(Qt::Key_Escape);
}

void tst_GalleryKeyboard::keysCloseDialogs()
{
    QFETCH(QString, page);
    QFETCH(QString, button);
    QFETCH(int, key);
    const PageView *view = m_window->openPage(GalleryPage::find(page));
    const auto buttons = view->findChildren<QPushButton *>();
    const auto opener = std::find_if(buttons.cbegin(), buttons.cend(),
                                     [&](const QPushButton *one) { return one->text() == button; });
    QVERIFY(opener != buttons.cend());
    (*opener)->setFocus(Qt::TabFocusReason);
    bool isAsked = false;
    QPointer<QWidget> dialog;
    QTimer::singleShot(0, m_window.get(), [&] {
        dialog = QApplication::activeModalWidget();
        isAsked = dialog != nullptr;
        if (dialog)
            QTest::keyClick(dialog, Qt::Key(key));
    });
    QTest::keyClick(*opener, Qt::Key_Space);
    QTRY_VERIFY(isAsked);
    QTRY_VERIFY(dialog.isNull() || !dialog->isVisible());
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

ORV_TEST_MAIN(tst_GalleryKeyboard)
#include "tst_gallery_keyboard.moc"
