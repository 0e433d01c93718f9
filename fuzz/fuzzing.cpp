#include "fuzzing.h"

#include <QtCore/QBuffer>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <cstdlib>
#include <limits>

namespace Fuzzing {

namespace {

const Target *&targets()
{
    static const Target *first = nullptr;
    return first;
}

const Target *chosen = nullptr;

// A library that logs a line per call would spend the time on that. A text about what cannot be is still a failure.
void ignoreMessages(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg)
        fail(text);
}

} // namespace

quint8 Input::byte()
{
    if (m_left == 0)
        return 0;
    --m_left;
    return *m_data++;
}

int Input::anyInt()
{
    constexpr int kLimits[] = {std::numeric_limits<int>::max(),
                               std::numeric_limits<int>::min(),
                               std::numeric_limits<int>::max() - 1,
                               1 << 30,
                               -(1 << 30),
                               65536,
                               32767,
                               -32768};
    const quint8 kind = byte();
    if (kind >= 0xf8)
        return kLimits[kind - 0xf8];
    return kind < 0x80 ? kind : kind < 0xc0 ? 0x80 - kind : kind * 16 + byte();
}

qreal Input::anyReal()
{
    const quint8 kind = byte();
    if (kind == 0xff)
        return std::numeric_limits<qreal>::quiet_NaN();
    if (kind == 0xfe)
        return std::numeric_limits<qreal>::infinity();
    if (kind == 0xfd)
        return -std::numeric_limits<qreal>::infinity();
    if (kind == 0xfc)
        return std::numeric_limits<qreal>::max();
    if (kind == 0xfb)
        return std::numeric_limits<qreal>::denorm_min();
    return kind >= 0x80 ? anyInt() : kind + byte() / 256.0;
}

QByteArray Input::bytes(int count)
{
    const int taken = int(qMin(m_left, size_t(qMax(0, count))));
    QByteArray result(reinterpret_cast<const char *>(m_data), taken);
    m_data += taken;
    m_left -= size_t(taken);
    return result;
}

QByteArray Input::until(char mark)
{
    QByteArray result;
    while (!isEmpty()) {
        const char next = char(byte());
        if (next == mark)
            break;
        result += next;
    }
    return result;
}

QImage anyImage(Input &input)
{
    constexpr QImage::Format kFormats[] = {
        QImage::Format_ARGB32, QImage::Format_RGB32,      QImage::Format_RGB888,
        QImage::Format_Mono,   QImage::Format_Grayscale8, QImage::Format_Grayscale16,
        QImage::Format_RGBA64, QImage::Format_Indexed8,   QImage::Format_ARGB32_Premultiplied};
    const QImage::Format format = kFormats[input.byte() % std::size(kFormats)];
    QImage image(1 + input.byte() % 40, 1 + input.byte() % 40, format);
    const QByteArray pattern = input.bytes(1 + input.byte() % 64) + '\x5a';
    const int bytes = int(image.sizeInBytes());
    for (int i = 0; i < bytes; ++i)
        image.bits()[i] = uchar(pattern.at(i % pattern.size()) + i / pattern.size());
    if (format == QImage::Format_ARGB32_Premultiplied)
        return image.convertToFormat(QImage::Format_ARGB32)
            .convertToFormat(format); // colours below their alpha
    if (format == QImage::Format_Indexed8 || format == QImage::Format_Mono) {
        QVector<QRgb> colours(format == QImage::Format_Mono ? 2 : 256);
        const QRgb step = 0x01030507U * (1 + input.byte());
        for (int i = 0; i < colours.size(); ++i)
            colours[i] = step * uint(i) | (step % 3 == 0 ? 0xff000000U : 0);
        image.setColorTable(colours);
    }
    return image;
}

QByteArray anyPicture(Input &input, const char **suffix)
{
    const quint8 kind = input.byte();
    const char *const suffixes[] = {".png", ".bmp", ".gif", ".svg", ".jpg", "@2x.png", "@3x.png", ""};
    *suffix = suffixes[kind % 8];
    if (kind < 0x80)
        return input.rest();
    const char *const format = kind % 8 == 1 ? "BMP" : "PNG";
    QByteArray contents;
    QBuffer buffer(&contents);
    buffer.open(QIODevice::WriteOnly);
    const QImage image = anyImage(input);
    image.save(&buffer, format, 100);
    if (kind >= 0xc0) { // damaged
        for (int i = input.byte() % 8; i > 0; --i)
            contents[input.below(contents.size())] = char(input.byte());
        if (input.flag())
            contents.truncate(input.below(contents.size()));
    }
    return contents;
}

void fail(const QString &text)
{
    std::fprintf(stderr, "fuzz: %s\n", qPrintable(text));
    std::abort();
}

bool identical(const QImage &left, const QImage &right)
{
    return left.format() == right.format() && left.size() == right.size() && left == right;
}

Target::Target(const char *targetName, Function targetFunction)
    : name(targetName)
    , function(targetFunction)
    , next(targets())
{
    targets() = this;
}

const Target *Target::find(const QByteArray &name)
{
    const Target *target = targets();
    while (target && name != target->name)
        target = target->next;
    return target;
}

bool begin()
{
    chosen = Target::find(qgetenv("ORV_FUZZ_TARGET"));
    if (!chosen) {
        std::fputs("fuzz: ORV_FUZZ_TARGET has to name one of", stderr);
        for (const Target *target = targets(); target; target = target->next)
            std::fprintf(stderr, " %s", target->name);
        std::fputs("\n", stderr);
        return false;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(ignoreMessages);
    static int argc = 1;
    static char name[] = "orvfuzz";
    static char *argv[] = {name, nullptr};
    new QApplication(argc, argv); // libFuzzer ends the process without returning
    QGuiApplication::setQuitOnLastWindowClosed(false);
    return true;
}

void run(const uint8_t *data, size_t size)
{
    Input input(data, size);
    chosen->function(input);
}

} // namespace Fuzzing

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    if (!Fuzzing::begin())
        std::exit(2);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Fuzzing::run(data, size);
    return 0;
}
