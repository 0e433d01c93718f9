#include "events.h"
#include "kinds.h"
#include "orvlook.h"
#include "pictures.h"
#include "report.h"
#include "sheet.h"
#include "testmain.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtGui/QCursor>
#include <QtGui/QFontDatabase>
#include <QtGui/QFontInfo>
#include <QtGui/QPainter>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QWidget>

#include <memory>

using namespace Pictures;

namespace {

const QString kFamily = QStringLiteral("Orv Boxes");
const QString kKept = QStringLiteral(ORV_KEPT_PICTURES "/");
const QString kOwn = QStringLiteral(ORV_OWN_PICTURES "/"); // of this Qt alone, where it has any

QVector<Kind> allKinds()
{
    return buttonKinds() + comboBoxKinds() + sliderKinds() + textKinds() + dialogKinds();
}

/// The window that a control stands in, which takes the focus so that the control does not.
std::unique_ptr<QWidget> windowFor(const Kind &kind, QWidget *widget)
{
    if (kind.isWindow) {
        widget->setAttribute(Qt::WA_DeleteOnClose, false);
        return std::unique_ptr<QWidget>(widget);
    }
    auto window = std::make_unique<QWidget>();
    const QSize size = widget->size();
    widget->setParent(window.get());
    widget->setGeometry(QRect(QPoint(8, 8), size));
    window->resize(size + QSize(16, 16));
    return window;
}

QImage pictureOf(const Kind &kind, const State &state, const QColor &paper)
{
    QWidget *widget = state.make ? state.make() : kind.make();
    const std::unique_ptr<QWidget> window = windowFor(kind, widget);
    window->move(0, 0);
    window->show();
    QApplication::setActiveWindow(window.get());
    window->setFocus();
    QCoreApplication::processEvents();
    state.enter(widget);
    QCoreApplication::processEvents();

    const Part &part = state.painted ? state.painted : kind.painted;
    const QImage painted = renderWidget(part ? part(widget) : widget);
    Events::release();
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QImage picture(painted.size(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(painted.devicePixelRatio());
    picture.fill(paper);
    QPainter(&picture).drawImage(QPoint(), painted);
    return picture;
}

QString fileName(const QString &widget)
{
    return QStringLiteral("%1@%2.png").arg(widget, QString::number(qApp->devicePixelRatio()));
}

/// What is expected: the own sheet of this Qt, or else the one in common.
Sheet keptSheet(const QString &file)
{
    return Sheet::load((QFileInfo::exists(kOwn + file) ? kOwn : kKept) + file);
}

/// Keeps what is painted, as a sheet of this Qt's own only where the one in common is another.
bool keep(const Sheet &painted, const QString &file)
{
    if (kOwn != kKept && differingNames(Sheet::load(kKept + file), painted).isEmpty())
        return QFile::remove(kOwn + file);
    return QDir().mkpath(kOwn) && painted.save(kOwn + file);
}

} // namespace

Q_DECLARE_METATYPE(Pictures::Kind)

class tst_Pictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void looksAsKept_data();
    void looksAsKept();
    void keepsNothingElse();

private:
    std::unique_ptr<Report> m_report;
};

void tst_Pictures::initTestCase()
{
    // What the system has a say in: the style and its colours, fonts, the blinking of the text cursor, the pointer.
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(QApplication::style()->standardPalette());
    for (const char *file : {"/boxes-regular.ttf", "/boxes-bold.ttf"})
        QVERIFY(QFontDatabase::addApplicationFont(QLatin1String(ORV_BOX_FONTS) + QLatin1String(file)) >= 0);
    QFont font(kFamily);
    font.setPixelSize(13);
    font.setHintingPreference(QFont::PreferNoHinting); // fitting to whole pixels is the system's own
    QApplication::setFont(font);
    QApplication::setCursorFlashTime(0);
    QCursor::setPos(700, 500);
    QCOMPARE(QFontInfo(QFont(QStringLiteral("another family"))).family(), kFamily);

    m_report = std::make_unique<Report>(QStringLiteral(ORV_PICTURES_REPORT "/") +
                                        QString::number(qApp->devicePixelRatio()));
}

void tst_Pictures::looksAsKept_data()
{
    QTest::addColumn<Kind>("kind");

    const QVector<Kind> kinds = allKinds();
    for (const Kind &kind : kinds)
        QTest::newRow(kind.name) << kind;
}

void tst_Pictures::looksAsKept()
{
    QFETCH(const Kind, kind);

    Sheet painted;
    for (const bool dark : {false, true}) {
        if (dark && !kind.hasLooks)
            continue;
        OrvLook::setDark(dark);
        const QColor paper = dark ? QColor(0x2B, 0x2D, 0x33) : QColor(0xE6, 0xE9, 0xF0);
        for (const State &state : kind.states) {
            if (!dark || !state.isOfLayout)
                painted.add((dark ? QStringLiteral("dark, ") : QString()) + state.name,
                            pictureOf(kind, state, paper));
        }
        OrvLook::setDark(false);
    }

    const QString name = QLatin1String(kind.name);
    const QString file = fileName(name);
    const Sheet kept = keptSheet(file);
    const QStringList names = differingNames(kept, painted);
    if (names.isEmpty())
        return;
    if (qEnvironmentVariableIsSet("ORV_ACCEPT_PICTURES")) {
        QVERIFY(keep(painted, file));
        return;
    }
    m_report->add(name, kept, painted);
    QFAIL(qPrintable(QStringLiteral("%1 of %2 pictures differ (%3). See %4; to accept them: %5")
                         .arg(names.size())
                         .arg(painted.names().size())
                         .arg(names.join(QStringLiteral("; ")), m_report->page(), acceptingCommand())));
}

void tst_Pictures::keepsNothingElse()
{
    QStringList files;
    const QVector<Kind> kinds = allKinds();
    for (const Kind &kind : kinds)
        files << fileName(QLatin1String(kind.name));
    const QStringList filter{fileName(QStringLiteral("*"))};
    const QStringList kept = QDir(kKept).entryList(filter, QDir::Files);
    for (const QString &file : kept)
        QVERIFY2(files.contains(file), qPrintable(file + QLatin1String(" is of no widget: remove it")));
    if (kOwn == kKept)
        return;
    const QStringList own = QDir(kOwn).entryList(filter, QDir::Files);
    for (const QString &file : own) {
        QVERIFY2(!differingNames(Sheet::load(kKept + file), Sheet::load(kOwn + file)).isEmpty(),
                 qPrintable(kOwn + file + QLatin1String(" is that of both: remove it")));
        QVERIFY2(kept.contains(file), qPrintable(kOwn + file + QLatin1String(" is of no widget: remove it")));
    }
}

ORV_TEST_MAIN(tst_Pictures)
#include "tst_pictures.moc"
