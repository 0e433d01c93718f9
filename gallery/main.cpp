#include "gallerypage.h"
#include "gallerystyle.h"
#include "mainwindow.h"
#include "orvqtcompat.h"
#include "placeteller.h"
#include "reportlog.h"
#include "shots.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QTime>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

constexpr int kFontSize = 14;

const QCommandLineOption &shotsOption()
{
    static const QCommandLineOption option(
        QStringLiteral("shots"),
        QStringLiteral("Write a picture of every page and dialog into <folder> and exit."),
        QStringLiteral("folder"));
    return option;
}

const QCommandLineOption &pageOption()
{
    static const QCommandLineOption option(QStringLiteral("page"), QStringLiteral("Open at the page <name>."),
                                           QStringLiteral("name"));
    return option;
}

const QCommandLineOption &listOption()
{
    static const QCommandLineOption option(QStringLiteral("list"),
                                           QStringLiteral("Print the pages' names and exit."));
    return option;
}

const QCommandLineOption &verboseOption()
{
    static const QCommandLineOption option(QStringLiteral("verbose"),
                                           QStringLiteral("Write the panel's lines to standard output too."));
    return option;
}

const QCommandLineOption &placesOption()
{
    static const QCommandLineOption option(
        QStringLiteral("places"),
        QStringLiteral("Write to standard output where the buttons are, as they come."));
    return option;
}

/// Pictures need no display: without one they are drawn on the platform that has none.
void choosePlatform(int argc, char **argv)
{
#ifdef Q_OS_LINUX
    const bool shots = std::any_of(argv, argv + argc, [](const char *argument) {
        return std::strncmp(argument, "--shots", 7) == 0 || std::strcmp(argument, "--list") == 0;
    });
    const bool display = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (shots && !display && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#else
    Q_UNUSED(argc)
    Q_UNUSED(argv)
#endif
}

/// Windows names the ratio that the user has chosen; an X server only has the screen's resolution, often a
/// made-up one.
void setUpScaling()
{
    using Policy = Qt::HighDpiScaleFactorRoundingPolicy;
#ifdef Q_OS_WIN
    QApplication::setHighDpiScaleFactorRoundingPolicy(Policy::PassThrough);
#else
    QApplication::setHighDpiScaleFactorRoundingPolicy(Policy::Round);
#endif
    orvqt::enableHighDpi();
}

void setUpLooks()
{
    QFont font = QApplication::font();
    font.setFamilies({QStringLiteral("Microsoft YaHei"), QStringLiteral("Segoe UI"),
                      QStringLiteral("PingFang SC"), QStringLiteral("Noto Sans CJK SC"),
                      QStringLiteral("Noto Sans"), QStringLiteral("DejaVu Sans")});
    font.setPixelSize(kFontSize);
    QApplication::setFont(font);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/surface/resources/surface/gallery/logo.svg")));
    setUpGalleryStyle();
}

int listPages()
{
    const QVector<const GalleryPage *> pages = GalleryPage::all();
    for (const GalleryPage *page : pages)
        std::printf("%s\n", qPrintable(page->name()));
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    choosePlatform(argc, argv);
    setUpScaling();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("gallery"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Every class of orvcommonlib at work."));
    parser.addHelpOption();
    parser.addOptions({shotsOption(), pageOption(), listOption(), verboseOption(), placesOption()});
    parser.process(application);
    if (parser.isSet(listOption()))
        return listPages();

    const GalleryPage *page = GalleryPage::all().value(0);
    if (parser.isSet(pageOption()))
        page = GalleryPage::find(parser.value(pageOption()));
    if (page == nullptr) {
        std::fprintf(stderr, "gallery: there is no page %s\n", qPrintable(parser.value(pageOption())));
        return 2;
    }

    ReportLog log;
    log.setVerbose(parser.isSet(verboseOption()));
    if (parser.isSet(shotsOption()))
        log.setFrozenTime(QTime(12, 0));
    setUpLooks();
    MainWindow window(&log);
    if (parser.isSet(shotsOption()))
        return writeShots(&window, parser.value(shotsOption())) ? 0 : 1;
    std::unique_ptr<PlaceTeller> places;
    if (parser.isSet(placesOption()))
        places = std::make_unique<PlaceTeller>();
    window.openPage(page);
    window.show();
    return QApplication::exec();
}
