#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtCore/QMap>
#include <QtCore/QResource>
#include <QtCore/QString>

/// Files in the resource tree, in one folder of it, for as long as the object lives: what another theme of an
/// application brings along under the same paths.
class MemoryResource
{
public:
    MemoryResource(QString folder, const QMap<QString, QByteArray> &files)
        : m_folder(std::move(folder))
        , m_data(packed(files))
    {
        QResource::registerResource(bytes(), m_folder);
    }
    ~MemoryResource() { QResource::unregisterResource(bytes(), m_folder); }
    Q_DISABLE_COPY(MemoryResource)

private:
    const uchar *bytes() const { return reinterpret_cast<const uchar *>(m_data.constData()); }

    // As the resource compiler hashes names.
    static quint32 hash(const QString &name)
    {
        quint32 hash = 0;
        for (const QChar letter : name) {
            hash = (hash << 4) + letter.unicode();
            hash ^= (hash & 0xf0000000) >> 23;
            hash &= 0x0fffffff;
        }
        return hash;
    }

    // The resource compiler's format, version 1: a tree of nodes, sorted by hash, which point to names and data.
    static QByteArray packed(const QMap<QString, QByteArray> &files)
    {
        QMap<quint32, QString> names;
        for (auto file = files.cbegin(); file != files.cend(); ++file)
            names.insert(hash(file.key()), file.key());

        QByteArray tree;
        QByteArray nameBytes;
        QByteArray data;
        QDataStream treeStream(&tree, QIODevice::WriteOnly);
        QDataStream nameStream(&nameBytes, QIODevice::WriteOnly);
        QDataStream dataStream(&data, QIODevice::WriteOnly);
        treeStream << quint32(0) << quint16(2) << quint32(names.size()) << quint32(1); // the folder itself
        for (auto name = names.cbegin(); name != names.cend(); ++name) {
            treeStream << quint32(nameBytes.size()) << quint16(0) << quint16(0) << quint16(1)
                       << quint32(data.size());
            nameStream << quint16(name->size()) << name.key();
            for (const QChar letter : *name)
                nameStream << letter.unicode();
            // A byte array is its size and its bytes, but for a null one, which is another number alone.
            const QByteArray file = files.value(*name);
            dataStream << (file.isNull() ? QByteArray("") : file);
        }

        constexpr quint32 kHeader = 20;
        const quint32 dataStart = kHeader + quint32(tree.size());
        QByteArray all;
        QDataStream stream(&all, QIODevice::WriteOnly);
        stream.writeRawData("qres", 4);
        stream << quint32(1) << kHeader << dataStart << dataStart + quint32(data.size());
        return all + tree + data + nameBytes;
    }

    QString m_folder;
    QByteArray m_data;
};
