#include "gallerypage.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {

/// Pages are added during static initialisation, in an order nobody knows: the list exists once the first one
/// needs it.
std::vector<std::unique_ptr<const GalleryPage>> &registry()
{
    static std::vector<std::unique_ptr<const GalleryPage>> pages;
    return pages;
}

bool comesBefore(const GalleryPage *left, const GalleryPage *right)
{
    if (left->family() != right->family())
        return left->family() < right->family();
    return left->title().compare(right->title(), Qt::CaseInsensitive) < 0;
}

} // namespace

GalleryPage::GalleryPage(GalleryFamily family, const char *title, const char *sentence, Build builder)
    : m_family(family)
    , m_title(title)
    , m_sentence(sentence)
    , m_build(builder)
{
}

const GalleryPage &GalleryPage::add(GalleryFamily family, const char *title, const char *sentence,
                                    Build builder)
{
    registry().emplace_back(new GalleryPage(family, title, sentence, builder));
    return *registry().back();
}

QString GalleryPage::name() const
{
    return title().toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
}

QVector<const GalleryPage *> GalleryPage::all()
{
    QVector<const GalleryPage *> pages;
    for (const auto &page : registry())
        pages.append(page.get());
    std::sort(pages.begin(), pages.end(), comesBefore);
    return pages;
}

const GalleryPage *GalleryPage::find(const QString &name)
{
    const QString wanted = name.toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
    const QVector<const GalleryPage *> pages = all();
    for (const GalleryPage *page : pages) {
        if (page->name() == wanted)
            return page;
    }
    return nullptr;
}

QString familyTitle(GalleryFamily family)
{
    switch (family) {
    case GalleryFamily::Start:
        return QStringLiteral("Start");
    case GalleryFamily::WindowFrame:
        return QStringLiteral("Window frame");
    case GalleryFamily::Dialogs:
        return QStringLiteral("Dialogs");
    case GalleryFamily::Buttons:
        return QStringLiteral("Buttons");
    case GalleryFamily::ComboBoxes:
        return QStringLiteral("Combo boxes");
    case GalleryFamily::Sliders:
        return QStringLiteral("Sliders");
    case GalleryFamily::Text:
        return QStringLiteral("Text");
    case GalleryFamily::Hotkeys:
        return QStringLiteral("Hotkeys");
    case GalleryFamily::Services:
        return QStringLiteral("Services");
    }
    return {};
}
