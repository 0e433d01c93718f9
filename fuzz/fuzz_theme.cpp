#include "fuzzing.h"
#include "orvlook.h"
#include "orvresloader.h"
#include "support/memoryresource.h"
#include "support/plainloader.h"

using namespace Fuzzing;

namespace {

// Texts that multiply each other grow without end: what becomes longer than this is not worth its time.
constexpr int kLongestText = 64 * 1024;

void tryTheme(Input &input)
{
    static int number = 0; // QSettings remembers the content of files by their names
    const QString folder = QStringLiteral("/fuzz%1").arg(++number);
    const quint8 kind = input.byte();
    const QByteArray theme = input.until('\xff');
    const QByteArray sheet = input.until('\xff');
    const MemoryResource files(folder, {{QStringLiteral("theme"), theme},
                                        {QStringLiteral("sheet"), sheet},
                                        {QStringLiteral("second"), input.rest()}});
    const auto path = [&](const char *name) {
        return QLatin1Char(':') + folder + QLatin1Char('/') + QLatin1String(name);
    };
    PlainLoader plain(kLongestText);
    plain.loadThemeFile(path("theme"));
    const QString first = plain.appendQssFile(path("sheet"));
    const QString both = plain.appendQssFile(path("second"));
    if (plain.isTooLong())
        return;

    OrvResourceLoader loader;
    check(loader.loadThemeFile(path("theme")), "a theme is refused");
    check(loader.loadQssFile(path("sheet")) == first, "the sheet differs from the recipe");
    const OrvResourceLoader copy = loader;
    check(loader.appendQssFile(path("second")) == both, "the second sheet differs from the recipe");
    check(OrvResourceLoader(copy).appendQssFile(path("second")) == both, "a copy makes another sheet");
    check(loader.loadQssFile(path("none")).isEmpty(), "a missing sheet is not empty");
    if (kind % 64 == 1) {
        OrvLook::setTheme(path("theme"));
        const QStringList names = OrvLook::names();
        for (const QString &name : names)
            check(OrvLook::color(name).isValid(), "a look without a colour");
    }
}

const Target target("theme", tryTheme);

} // namespace
