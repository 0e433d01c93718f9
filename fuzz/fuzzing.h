#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtGui/QImage>

#include <cstdint>

/// What the fuzz targets share. Each lies in a file of its own, tries one part of the library with an input and fails
/// by a sanitizer's or by its own word.
namespace Fuzzing {

/// The bytes of an input, from which a target takes what it needs. There is no end: behind it come zeros.
class Input
{
public:
    Input(const uint8_t *data, size_t size)
        : m_data(data)
        , m_left(size)
    {
    }

    bool isEmpty() const { return m_left == 0; }
    quint8 byte();
    bool flag() { return byte() % 2 != 0; }
    /// 0 to `limit` - 1.
    int below(int limit) { return int(byte() | byte() << 8) % limit; }
    /// Mostly a small number, negative ones included; now and then one of those that overflow.
    int anyInt();
    qreal anyReal();
    QByteArray bytes(int count);
    QByteArray rest() { return bytes(int(m_left)); }
    QByteArray until(char mark);

private:
    const uint8_t *m_data;
    size_t m_left;
};

/// An image of up to 40 x 40 pixels, of any format that files bring.
QImage anyImage(Input &input);
/// The same as the content of a file, or anything that begins like one.
QByteArray anyPicture(Input &input, const char **suffix);

/// Ends the process, for libFuzzer to keep the input.
[[noreturn]] void fail(const QString &text);
inline void check(bool condition, const char *text)
{
    if (!condition)
        fail(QString::fromLatin1(text));
}

/// Bitwise the same, in the same format.
bool identical(const QImage &left, const QImage &right);

using Function = void (*)(Input &);

/// Makes a function known under a name; for static objects in the targets' files.
class Target
{
public:
    Target(const char *name, Function function);

    const char *const name;
    const Function function;
    const Target *const next;

    static const Target *find(const QByteArray &name);
};

/// Chooses the target that the environment variable ORV_FUZZ_TARGET names; false if there is none.
bool begin();
void run(const uint8_t *data, size_t size);

} // namespace Fuzzing
