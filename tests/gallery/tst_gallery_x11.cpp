#include "testmain.h"
#include "xpointer.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QHash>
#include <QtCore/QProcess>
#include <QtCore/QRect>
#include <QtGui/QImage>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

namespace {

constexpr int kStartTimeoutMs = 60000;
constexpr int kTimeoutMs = 20000;
constexpr int kSettleMs = 300; // for the window manager, which answers nobody

} // namespace

/// The gallery in a process of its own, and what it has said so far.
class Gallery : public QObject
{
    Q_OBJECT

public:
    explicit Gallery(const QString &page)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("QT_SCALE_FACTOR"));
        environment.remove(QStringLiteral("QT_SCALE_FACTOR_ROUNDING_POLICY"));
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::SeparateChannels);
        connect(&m_process, &QProcess::readyReadStandardOutput, this, &Gallery::read);
        m_process.start(
            QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral(GALLERY_NAME)),
            {QStringLiteral("--page"), page, QStringLiteral("--verbose"), QStringLiteral("--places")});
    }

    ~Gallery() override
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    /// The place of a button, as "window title/text"; null until it has been told.
    QRect place(const QString &button) const { return m_places.value(button); }
    /// The panel's lines, as "level text".
    QStringList lines() const { return m_lines; }
    bool isRunning() const { return m_process.state() == QProcess::Running; }
    int exitCode() const { return m_process.exitCode(); }

private:
    void read()
    {
        while (m_process.canReadLine()) {
            const QStringList words =
                QString::fromUtf8(m_process.readLine()).trimmed().split(QLatin1Char('\t'));
            if (words.value(0) == QLatin1String("place") && words.size() == 7)
                m_places.insert(words.at(1) + QLatin1Char('/') + words.at(2),
                                QRect(words.at(3).toInt(), words.at(4).toInt(), words.at(5).toInt(),
                                      words.at(6).toInt()));
            else
                m_lines.append(words.join(QLatin1Char(' ')));
        }
    }

    QProcess m_process;
    QHash<QString, QRect> m_places;
    QStringList m_lines;
};

class tst_GalleryX11 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void maskedMessageRunsForReal();
    void hotkeyCountsWhileAnotherWindowHasTheFocus();
    void theWindowIsDraggedAndClosed();
};

void tst_GalleryX11::maskedMessageRunsForReal()
{
    const QString execButton = QStringLiteral("orvcommonlib gallery/exec-popupdlgwithmask");
    const QString closeOfWindow = QStringLiteral("orvcommonlib gallery/close");
    const QString confirmButton = QStringLiteral("message/Got it");
    Gallery gallery(QStringLiteral("popupdlgwithmask"));
    QTRY_VERIFY_WITH_TIMEOUT(!gallery.place(execButton).isNull(), kStartTimeoutMs);
    QTest::qWait(kSettleMs);

    // A spot of the title bar that the dialog does not cover tells whether the window is dimmed.
    const QPoint spot = gallery.place(closeOfWindow).topLeft() - QPoint(200, 0);
    const auto lightness = [spot] {
        return XPointer::grabScreen().pixelColor(spot).lightness();
    };
    QCOMPARE(lightness(), 255);

    XPointer::click(gallery.place(execButton).center());
    QTRY_VERIFY_WITH_TIMEOUT(!gallery.place(confirmButton).isNull(), kTimeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(lightness() < 200, kTimeoutMs);
    QTest::qWait(kSettleMs);

    // It stays where it is when it is pulled by its title.
    const QRect confirmPlace = gallery.place(confirmButton);
    const QImage before = XPointer::grabScreen();
    const QPoint title = confirmPlace.center() - QPoint(120, 140);
    XPointer::drag(title, title + QPoint(90, 70));
    QTest::qWait(kSettleMs);
    QCOMPARE(gallery.place(confirmButton), confirmPlace);
    QVERIFY(before.copy(confirmPlace) == XPointer::grabScreen().copy(confirmPlace));
    QVERIFY(!gallery.lines().contains(QStringLiteral("signal PopupDlgWithMask::closeMsgBox()")));

    XPointer::click(confirmPlace.center());
    QTRY_VERIFY_WITH_TIMEOUT(gallery.lines().contains(QStringLiteral("result exec() returned 0")),
                             kTimeoutMs);
    QTRY_COMPARE_WITH_TIMEOUT(lightness(), 255, kTimeoutMs);
    QStringList said = gallery.lines();
    said = said.mid(said.indexOf(QStringLiteral("info AAAAA--PopupDlgWithMask--confirm btn clicked")));
    QCOMPARE(said.join(QLatin1Char('\n')),
             QStringLiteral("info AAAAA--PopupDlgWithMask--confirm btn clicked\n"
                            "info AAAAA--PopupDlgWithMask--confirm btn clicked--end\n"
                            "signal PopupDlgWithMask::closeMsgBox()\n"
                            "result exec() returned 0"));
}

void tst_GalleryX11::hotkeyCountsWhileAnotherWindowHasTheFocus()
{
    const QString registerButton = QStringLiteral("orvcommonlib gallery/register-first");
    const QString activated = QStringLiteral("signal QHotkey::activated()");
    Gallery gallery(QStringLiteral("qhotkey"));
    QTRY_VERIFY_WITH_TIMEOUT(!gallery.place(registerButton).isNull(), kStartTimeoutMs);
    QTest::qWait(kSettleMs);
    XPointer::click(gallery.place(registerButton).center());
    QTRY_VERIFY_WITH_TIMEOUT(
        gallery.lines().contains(QStringLiteral("signal QHotkey::registeredChanged(true)")), kTimeoutMs);

    QWidget another;
    another.resize(200, 100);
    QVERIFY(XPointer::showAndWait(&another));
    QVERIFY(QTest::qWaitForWindowActive(&another));
    XPointer::key(QStringLiteral("ctrl+shift+F9"));
    QTRY_COMPARE_WITH_TIMEOUT(gallery.lines().count(activated), 1, kTimeoutMs);
    XPointer::key(QStringLiteral("ctrl+shift+F9"));
    QTRY_COMPARE_WITH_TIMEOUT(gallery.lines().count(activated), 2, kTimeoutMs);
}

void tst_GalleryX11::theWindowIsDraggedAndClosed()
{
    const QString closeButton = QStringLiteral("orvcommonlib gallery/close");
    Gallery gallery(QStringLiteral("welcome"));
    QTRY_VERIFY_WITH_TIMEOUT(!gallery.place(closeButton).isNull(), kStartTimeoutMs);
    QTest::qWait(kSettleMs);

    const QRect place = gallery.place(closeButton);
    const QPoint title = place.center() - QPoint(300, 0);
    XPointer::drag(title, title + QPoint(-40, 30));
    QTRY_COMPARE_WITH_TIMEOUT(gallery.place(closeButton), place.translated(-40, 30), kTimeoutMs);

    XPointer::click(gallery.place(closeButton).center());
    QTRY_VERIFY_WITH_TIMEOUT(!gallery.isRunning(), kTimeoutMs);
    QCOMPARE(gallery.exitCode(), 0);
}

ORV_TEST_MAIN(tst_GalleryX11)
#include "tst_gallery_x11.moc"
