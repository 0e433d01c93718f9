#include "resources.h"

#include <qpa/qplatformnativeinterface.h>
#include <QtCore/QDir>
#include <QtGui/QGuiApplication>

#include <malloc.h>
#include <xcb/xcb.h>
#include <xcb/xcbext.h>

#include <cstdlib>
#include <cstring>

namespace Resources {

namespace {

qint64 entries(const char *folder)
{
    return QDir(QString::fromLatin1(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

/// The reply of the X server's extension that counts what a client has; its own library is installed hardly anywhere.
struct ClientResources
{
    quint8 responseType;
    quint8 padding;
    quint16 sequence;
    quint32 length;
    quint32 typeCount;
    quint32 unused[5];
};
struct TypeCount
{
    xcb_atom_t type;
    quint32 count;
};

QString nameOf(xcb_connection_t *connection, xcb_atom_t atom)
{
    xcb_get_atom_name_reply_t *reply =
        xcb_get_atom_name_reply(connection, xcb_get_atom_name(connection, atom), nullptr);
    QString name =
        reply ? QString::fromLatin1(xcb_get_atom_name_name(reply), xcb_get_atom_name_name_length(reply))
              : QString();
    std::free(reply);
    return name;
}

void countServerSide(xcb_connection_t *connection, Counts *counts)
{
    static xcb_extension_t extension{"X-Resource", 0};
    constexpr quint8 kQueryClientResources = 2;
    struct
    {
        quint8 major;
        quint8 minor;
        quint16 length;
        quint32 client;
    } request{0, kQueryClientResources, 2, xcb_generate_id(connection)};
    constexpr int kReservedForXcb = 2;
    iovec parts[kReservedForXcb + 1] = {{}, {}, {&request, sizeof request}};
    const xcb_protocol_request_t protocol{1, &extension, kQueryClientResources, 0};
    const unsigned int sequence =
        xcb_send_request(connection, XCB_REQUEST_CHECKED, parts + kReservedForXcb, &protocol);
    auto *reply = static_cast<ClientResources *>(xcb_wait_for_reply(connection, sequence, nullptr));
    if (!reply)
        return;
    const auto *types = reinterpret_cast<const TypeCount *>(reply + 1);
    for (quint32 i = 0; i < reply->typeCount; ++i)
        counts->insert(QStringLiteral("X ") + nameOf(connection, types[i].type), types[i].count);
    std::free(reply);
}

} // namespace

void countSystem(Counts *counts)
{
    malloc_trim(0);
    counts->insert(QStringLiteral("memory in KiB"), qint64(mallinfo2().uordblks / 1024));
    counts->insert(QStringLiteral("threads"), entries("/proc/self/task"));
    counts->insert(QStringLiteral("file handles"), entries("/proc/self/fd"));
    auto *const connection = static_cast<xcb_connection_t *>(
        QGuiApplication::platformNativeInterface()->nativeResourceForIntegration(
            QByteArrayLiteral("connection")));
    if (connection)
        countServerSide(connection, counts);
}

} // namespace Resources
