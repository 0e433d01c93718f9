#pragma once

#include <QtCore/QString>
#include <QtCore/QVector>

class PageBuilder;

/// The families of the list on the left, in the order in which they stand there.
enum class GalleryFamily {
    Start,
    WindowFrame,
    Dialogs,
    Buttons,
    ComboBoxes,
    Sliders,
    Text,
    Hotkeys,
    Services
};

/// One page of the gallery. A file in gallery/pages defines a static object of this class, and that is all it
/// takes: the object registers itself, and CMake finds the file. pagebuilder.h shows a whole page.
class GalleryPage
{
public:
    /// Fills the page. It is called when the page is first opened; the builder lives only as long as the
    /// call.
    using Build = void (*)(PageBuilder &page);

    /// Adds a page; call it in the initialiser of a constant of the page's file. `title` is the class name
    /// (or a few words), `sentence` says what the class is for: both are UTF-8 literals.
    static const GalleryPage &add(GalleryFamily family, const char *title, const char *sentence,
                                  Build builder);

    GalleryPage(const GalleryPage &) = delete;
    GalleryPage &operator=(const GalleryPage &) = delete;

    GalleryFamily family() const { return m_family; }
    QString title() const { return QString::fromUtf8(m_title); }
    QString sentence() const { return QString::fromUtf8(m_sentence); }
    /// The title in lower case with hyphens for blanks: the page's name on the command line and in file
    /// names.
    QString name() const;
    void build(PageBuilder &page) const { m_build(page); }

    /// Every page, ordered by family, then by title.
    static QVector<const GalleryPage *> all();
    /// The page of that name or title, in any case; null when there is none.
    static const GalleryPage *find(const QString &name);

private:
    GalleryPage(GalleryFamily family, const char *title, const char *sentence, Build builder);

    GalleryFamily m_family;
    const char *m_title;
    const char *m_sentence;
    Build m_build;
};

/// The heading under which the family's pages are listed.
QString familyTitle(GalleryFamily family);
