#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QColor>

/// The colours of the library's widgets, by name, for the whole process: the light look, the dark one, or a
/// theme of the client's own.
///
/// \image html page-orvlook.png
///
/// Every colour that the library's style sheets and painting use has a name, see names(), and a value that
/// comes from a theme, a file in the format of OrvResourceLoader. The library carries two:
/// ":/orvcommonlib/themes/light.ini", which is in force at first, and ":/orvcommonlib/themes/dark.ini".
///
/// A change reaches all widgets at once: those on the screen, hidden ones, open lists, dialogs in their
/// exec(), and all that are made later. Each is repainted by the next turn of the event loop. A style sheet
/// that a client has set on a widget of the library stays as it is, and so do colours, pictures and skins
/// that a client has given. The style sheets that the library makes itself are the same, to the letter,
/// whenever the same theme is in force.
///
/// Of the pictures that the library's style sheets and dialogs name, the client's included, a dark look shows
/// the one whose name ends in "_dark" (":/icons/close_dark.png" for ":/icons/close.png"), where there is one.
///
/// All members are to be called in the thread of the application object, the GUI thread. In any other thread
/// they change nothing, log a warning and return `false`, an invalid colour or an empty list; only instance()
/// answers everywhere.
///
/// \par When to use it
/// To switch the library's widgets between light and dark, or to give them the colours of a brand. Stock widgets
/// follow the application's palette or style sheet, not OrvLook.
///
/// \par Example
/// \snippet looks.cpp OrvLook
///
/// \since 1.0
/// \sa OrvResourceLoader, \ref guide_looks
/// \ingroup looks
class ORVCOMMONLIB_EXPORT OrvLook : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(OrvLook)

public:
    /// The one that emits the signal. It belongs to the library and goes with the application object.
    ///
    /// \return never null while an application object exists, and null otherwise
    static OrvLook *instance();

    /// Puts a theme in force. Names that it lacks, or whose value is no colour, get light's values; names that the
    /// library does not know are ignored. A colour is what QColor reads ("#4B66EB", "white"), or "rgb(75, 102, 235)" or
    /// "rgba(75, 102, 235, 0.5)", which needs quotes in the file.
    ///
    /// \param iniFile path of a theme, in the file system or among the resources
    /// \return false, with a warning and without any change, when the file cannot be opened
    static bool setTheme(const QString &iniFile);

    /// Puts one of the two embedded themes in force.
    ///
    /// \param dark the dark one; otherwise the light one
    static void setDark(bool dark);

    /// \return whether the colour of texts ("titleText") is lighter than their ground ("dialogGround")
    static bool isDark();

    /// \param name one of names()
    /// \return the colour in force; an invalid one when there is no such name
    static QColor color(const QString &name);

    /// \return the names of all colours, sorted
    static QStringList names();

Q_SIGNALS:
    /// At least one colour has changed. Emitted once for each such call of setTheme() or setDark(), in that call, when
    /// all widgets have got their style sheets; a call that changes no colour emits nothing.
    void changed();

private:
    OrvLook();
    ~OrvLook() override;
};
