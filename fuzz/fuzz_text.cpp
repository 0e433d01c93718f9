#include "fuzzing.h"
#include "orvcommonlib.h"
#include "support/memoryresource.h"

#include <QtCore/QCryptographicHash>
#include <QtGui/QFont>
#include <QtGui/QFontMetrics>

using namespace Fuzzing;

namespace {

QString anyText(Input &input, int longest)
{
    QString text;
    for (int length = input.below(longest + 1); length > 0; --length) {
        const quint8 unit = input.byte();
        text += QChar(unit < 0xC0 ? unit : ushort(0xFF00 - 0xC000 + 0x100 * unit + input.byte()));
    }
    return text;
}

QString plainFull(const QString &text)
{
    QString result;
    for (const QChar unit : text) {
        const int code = unit.unicode();
        result += QChar(code == 32 ? 12288 : code == 46 ? 12290 : code < 127 ? code + 65248 : code);
    }
    return result;
}

QString plainHalf(const QString &text)
{
    QString result;
    for (const QChar unit : text) {
        const int code = unit.unicode();
        result += QChar(code == 12288                  ? 32
                        : code == 12290                ? 46
                        : code > 65280 && code < 65375 ? code - 65248
                                                       : code);
    }
    return result;
}

QString plainDigest(const QByteArray &bytes)
{
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
}

void tryWidths(const QString &text)
{
    check(totalcommon::HalfToFull(text) == plainFull(text), "HalfToFull() differs from the recipe");
    check(totalcommon::FullToHalf(text) == plainHalf(text), "FullToHalf() differs from the recipe");
}

void tryDigests(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    const int end = bytes.indexOf('\0');
    const QString expected = text.isEmpty() ? QString() : plainDigest(bytes.mid(0, end));
    check(totalcommon::generateMd5(text) == expected, "generateMd5() differs from the recipe");
}

void tryFile(Input &input, const QString &text)
{
    QByteArray contents = input.bytes(input.byte() % 32);
    if (input.byte() % 16 == 0)
        contents = contents.repeated(1 + input.below(700));
    const MemoryResource file(QStringLiteral("/fuzz"), {{QStringLiteral("file"), contents}});
    check(totalcommon::FileMD5(QStringLiteral(":/fuzz/file"), text) ==
              plainDigest(contents.left(10240) + text.toUtf8()),
          "FileMD5() differs from the recipe");
    check(totalcommon::FileMD5(QStringLiteral(":/fuzz/") + QString::fromLatin1(contents.toHex()), text)
              .isEmpty(),
          "FileMD5() of a missing file");
}

void tryFont(Input &input, const QString &text)
{
    const int size = 1 + input.byte() % 64;
    const int weight = input.anyInt();
    QFont font;
    QFont expected;
    expected.setFamily(QStringLiteral("Microsoft Yahei"));
    expected.setPixelSize(size);
    expected.setWeight(qBound(0, weight, 99));
    const int width = totalcommon::getFontWidth(size, text, font, weight);
    check(font == expected, "getFontWidth() leaves another font");
    check(width == QFontMetrics(expected).boundingRect(text).width() + 2,
          "getFontWidth() measures otherwise");
}

void tryText(Input &input)
{
    const quint8 kind = input.byte();
    const QString text = anyText(input, kind % 16 == 1 ? 12 : 200);
    tryWidths(text);
    tryDigests(text);
    if (kind % 4 == 0)
        tryFile(input, text);
    if (kind % 16 == 1)
        tryFont(input, text);
}

const Target target("text", tryText);

} // namespace
