#include "orvcommonlib.h"

#include <QtCore/QFile>

QStringList totalcommon::clientPictures()
{
    return {
        QStringLiteral(":/graffiti/resources/graffiti/fontbox/downarrow.svg"),
        QStringLiteral(":/noviceguide/resources/newui/noviceguide/closebtn.png"),
        QStringLiteral(":/resources/channels/slider_handle.png"),
        QStringLiteral(":/resources/common_icons/check.png"),
        QStringLiteral(":/resources/common_icons/close.png"),
        QStringLiteral(":/resources/common_icons/close_hover.png"),
        QStringLiteral(":/resources/common_icons/uncheck.png"),
        QStringLiteral(":/surface/resources/surface/camerasetting/warning.png"),
        QStringLiteral(":/surface/resources/surface/common/close.png"),
        QStringLiteral(":/surface/resources/surface/common/close_hover.png"),
        QStringLiteral(":/surface/resources/surface/common/dialog_bg.png"),
        QStringLiteral(":/surface/resources/surface/live/connecting.gif"),
    };
}

QStringList totalcommon::missingClientPictures()
{
    QStringList missing;
    const QStringList expected = clientPictures();
    for (const QString &path : expected) {
        if (!QFile::exists(path))
            missing.append(path);
    }
    return missing;
}
