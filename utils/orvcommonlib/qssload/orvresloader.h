#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>

class QRegularExpression;

/// Turns style sheets that refer to the values of a theme into plain style sheets.
///
/// \image html page-orvresourceloader.png
///
/// A theme is an INI file of named values. A style sheet refers to the value `accent` as `@accent` or
/// `@{accent}`. Load the theme with loadThemeFile(), then the base sheet with loadQssFile() and further ones
/// with appendQssFile(); what the last call returns is the complete sheet for QWidget::setStyleSheet() or
/// QApplication::setStyleSheet(). File names may be paths of the file system or of resources.
///
/// References are replaced as plain text, one name after the other in the order in which they appear: when
/// one name is the beginning of another (`@main` and `@mainText`) and appears first, it also replaces the
/// beginning of the longer one. An `@` before a word is a reference wherever it stands, in the name of an
/// image (`icon@2x.png`) too. A reference to a missing name, or to an empty value, becomes nothing; the info
/// line that names it and ends in "not exist" tells.
///
/// Sheets and values may grow to 256 Mi characters. A value that would make one longer stays a reference
/// there: values that multiply each other (a name that stands twice in its own value, say) would otherwise do
/// so without end. The warning that names it and ends in "makes the text too long" tells.
///
/// Loaders can be copied; each is used in one thread. The time to load grows with the sizes of theme and
/// sheet, not with their product.
///
/// \par When to use it
/// For style sheets of your own in several themes. A sheet without names needs no loader:
/// QApplication::setStyleSheet() takes it as it is.
///
/// \par Example
/// \snippet looks.cpp OrvResourceLoader
///
/// \since 1.0
/// \sa OrvLook, \ref guide_themes
/// \ingroup looks
class ORVCOMMONLIB_EXPORT OrvResourceLoader
{
public:
    /// A loader without any values: every reference becomes nothing.
    OrvResourceLoader();
    /// A loader with the same values and the same sheets.
    /// \param other the loader to copy
    OrvResourceLoader(const OrvResourceLoader &other);
    /// Takes the values and the sheets of another loader.
    /// \param other the loader to copy
    /// \return this one
    OrvResourceLoader &operator=(const OrvResourceLoader &other);
    ~OrvResourceLoader();

    /// Adds the values of a theme file to those already known, replacing values of the same name, and
    /// resolves the references between them.
    ///
    /// Sections only arrange the file: the name of a value is its key without the section. A key of a section
    /// wins over one outside of any section, and a later section, as QSettings lists them, over an earlier
    /// one. The text encoding is the one in which QSettings reads INI files by default.
    ///
    /// A value with a comma needs quotes, as in `shade="rgba(0, 0, 0, 0.1)"`: without them QSettings reads a
    /// list, which counts as an empty value. One with a semicolon needs them, too: it begins a comment.
    ///
    /// Values are resolved once, in the order of their names: a value that refers to a name further back in
    /// that order receives that name's value as it stands in the file, references included. The info line
    /// "theme name:" tells the value of the key "ThemeName".
    ///
    /// \param fileName path of an INI file, in the file system or among the resources
    /// \return always true, deliberately: a file that is missing, cannot be read or is no INI file adds
    ///         nothing, and only the empty name in the info line tells
    bool loadThemeFile(const QString &fileName) { return initConfigFile(fileName); }

    /// Starts anew with a style sheet. A file that cannot be opened counts as an empty one; a warning tells
    /// why.
    ///
    /// \param fileName path of a UTF-8 text, in the file system or among the resources
    /// \return the sheet with its references replaced
    QString loadQssFile(QString fileName);

    /// Adds a style sheet to those loaded since the last loadQssFile(). A file that cannot be opened adds
    /// nothing; a warning tells why.
    ///
    /// \param fileName path of a UTF-8 text, in the file system or among the resources
    /// \return all of these sheets together, with their references replaced
    QString appendQssFile(QString fileName);

private:
    friend class OrvLook; // which takes a theme's values as they are

    static QString load(const QString &fileName);
    bool initConfigFile(const QString &fileName);
    QString getMatchedValue(const QString &reference) const;
    void applyThemeValue(QString &text) const;

    QStringList referencesIn(const QString &text) const;
    void replaceReferences(QString &text, QStringList references) const;

    QMap<QString, QString> m_themeValues;         ///< by bare name, without "@" and braces
    const QRegularExpression *m_referencePattern; ///< shared by all copies and never deleted
    QString m_styleSheet;                         ///< everything since the last loadQssFile()
};
