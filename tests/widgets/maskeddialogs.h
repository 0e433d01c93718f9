#pragma once

#include "logcapture.h"
#include "popupdlgwithmask.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QTimer>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QVBoxLayout>

#include <functional>
#include <memory>

/// Making both forms of PopupDlgWithMask, and finding their parts by their place in the layouts.
namespace MaskedDialogs {

constexpr QSize kSize(320, 460);
using Action = std::function<void(PopupDlgWithMask *)>;

struct Options
{
    bool useMask = false;
    bool deleteOnClose = false;
    bool dialogWindow = true;
    bool modal = false;
    QWidget *parent = nullptr;
};

inline PopupDlgWithMask *newMessage(const Options &options = {})
{
    return new PopupDlgWithMask(QStringLiteral(":/client/popup_bg.png"), kSize, 1, 2, 3, 4,
                                QStringLiteral("Title"), QStringLiteral("Content"), QStringLiteral("1/3"),
                                QStringLiteral("OK"), options.useMask, options.deleteOnClose,
                                options.dialogWindow, options.modal, options.parent);
}

inline PopupDlgWithMask *newPages(int images, int titles, int contents, const Options &options = {})
{
    const auto list = [](const QString &entry, int count) {
        QVector<QString> result;
        for (int i = 0; i < count; ++i)
            result << entry.arg(i);
        return result;
    };
    QVector<QString> pageImages = list(QStringLiteral(":/client/page%1.png"), images);
    QVector<QString> pageTitles = list(QStringLiteral("Page %1"), titles);
    QVector<QString> pageContents = list(QStringLiteral("Text %1"), contents);
    return new PopupDlgWithMask(QStringLiteral(":/client/popup_bg.png"), kSize, 1, 2, 3, 4,
                                QStringLiteral("Title"), pageImages, pageTitles, pageContents,
                                QStringLiteral("1/3"), QStringLiteral("OK"), options.useMask,
                                options.deleteOnClose, options.dialogWindow, options.modal, options.parent);
}

inline std::unique_ptr<PopupDlgWithMask> makeMessage(const Options &options = {})
{
    return std::unique_ptr<PopupDlgWithMask>(newMessage(options));
}

inline std::unique_ptr<PopupDlgWithMask> makePages(int count, const Options &options = {})
{
    return std::unique_ptr<PopupDlgWithMask>(newPages(count, count, count, options));
}

inline QVBoxLayout *mainLayoutOf(const PopupDlgWithMask *dialog)
{
    return qobject_cast<QVBoxLayout *>(dialog->layout());
}

inline QWidget *widgetIn(const QLayout *layout, int index)
{
    return layout->itemAt(index)->widget();
}

inline const QLayout *titleRowOf(const PopupDlgWithMask *dialog)
{
    return dialog->layout()->itemAt(0)->layout();
}

inline const QLayout *bottomRowOf(const PopupDlgWithMask *dialog)
{
    return dialog->layout()->itemAt(dialog->layout()->count() - 1)->layout();
}

inline QLabel *titleOf(const PopupDlgWithMask *dialog)
{
    return qobject_cast<QLabel *>(widgetIn(titleRowOf(dialog), 0));
}

inline QPushButton *closeButtonOf(const PopupDlgWithMask *dialog)
{
    return qobject_cast<QPushButton *>(widgetIn(titleRowOf(dialog), 2));
}

inline QLabel *contentOf(const PopupDlgWithMask *dialog)
{
    return qobject_cast<QLabel *>(widgetIn(dialog->layout()->itemAt(1)->layout(), 0));
}

inline QLabel *noteOf(const PopupDlgWithMask *dialog)
{
    return qobject_cast<QLabel *>(widgetIn(bottomRowOf(dialog), 0));
}

inline QPushButton *confirmButtonOf(const PopupDlgWithMask *dialog)
{
    return qobject_cast<QPushButton *>(widgetIn(bottomRowOf(dialog), 2));
}

inline QStackedWidget *stackOf(const PopupDlgWithMask *dialog)
{
    return dialog->findChild<QStackedWidget *>();
}

inline QTimer *pageTimerOf(const PopupDlgWithMask *dialog)
{
    return dialog->findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
}

/// Lets the page interval pass.
inline void turnPage(PopupDlgWithMask *dialog)
{
    QTimer *timer = pageTimerOf(dialog);
    QTimerEvent timeout(timer->timerId());
    QCoreApplication::sendEvent(timer, &timeout);
}

/// What the library has logged; platforms add lines of their own.
inline QStringList libraryTexts(const LogCapture &log)
{
    QStringList result;
    const QVector<LogLine> lines = log.lines();
    for (const LogLine &line : lines) {
        if (line.file.contains(QLatin1String("utils/orvcommonlib/")))
            result << line.text;
    }
    return result;
}

inline bool hasAlignment(const QLayout *layout)
{
    for (int i = 0; i < layout->count(); ++i) {
        if (layout->itemAt(i)->alignment() != Qt::Alignment())
            return true;
    }
    return false;
}

inline bool isStretch(QLayoutItem *item, Qt::Orientation orientation)
{
    return item->spacerItem() && item->expandingDirections().testFlag(orientation);
}

} // namespace MaskedDialogs
