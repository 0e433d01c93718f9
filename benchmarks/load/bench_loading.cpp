#include "bench.h"

#include <QtCore/QFileInfo>

#include <dlfcn.h>
#include <link.h>

#include <vector>

namespace {

constexpr int kLoadsPerHold = 64;

void *opened(const char *file, int flags = 0)
{
    void *const handle = dlopen(file, RTLD_NOW | RTLD_LOCAL | flags);
    // A library that is not there would be the fastest of all.
    if (!handle)
        qFatal("%s", dlerror());
    return handle;
}

void loadAndUnload(const char *file)
{
    dlclose(opened(file));
}

/// Keeps in memory what a library needs, but not the library itself.
class HeldNeeds
{
public:
    explicit HeldNeeds(const char *file)
    {
        void *const handle = opened(file);
        link_map *own = nullptr;
        dlinfo(handle, RTLD_DI_LINKMAP, &own);
        for (const link_map *map = own->l_next; map; map = map->l_next)
            m_handles.push_back(opened(map->l_name, RTLD_NOLOAD));
        dlclose(handle);
    }
    ~HeldNeeds()
    {
        for (void *const handle : m_handles)
            dlclose(handle);
    }
    HeldNeeds(const HeldNeeds &) = delete;
    HeldNeeds &operator=(const HeldNeeds &) = delete;

private:
    std::vector<void *> m_handles;
};

void loadManyTimes(const char *file)
{
    const HeldNeeds needs(file);
    for (int load = 0; load < kLoadsPerHold; ++load)
        loadAndUnload(file);
}

struct Relocations
{
    double relative = 0;
    double symbolic = 0;
};

Relocations relocationsOf(const char *file)
{
    void *const handle = opened(file);
    link_map *map = nullptr;
    dlinfo(handle, RTLD_DI_LINKMAP, &map);
    quint64 all = 0;
    quint64 relative = 0;
    for (const ElfW(Dyn) *entry = map->l_ld; entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == DT_RELASZ || entry->d_tag == DT_PLTRELSZ)
            all += entry->d_un.d_val / sizeof(ElfW(Rela));
        else if (entry->d_tag == DT_RELACOUNT)
            relative = entry->d_un.d_val;
    }
    dlclose(handle);
    return {double(relative), double(all - relative)};
}

double kilobytes(const char *file)
{
    return double(QFileInfo(QString::fromUtf8(file)).size()) / 1024;
}

const BenchGroup group("loading", [](Bench &bench) {
    const char *const ours = ORV_LIBRARY_FILE;
    const char *const svg = ORV_SVG_LIBRARY_FILE;
    bench.compare(
        "dlopen + dlclose 64 times, what it needs is there / QtSvg", [=] { loadManyTimes(ours); },
        [=] { loadManyTimes(svg); });
    bench.compare(
        "dlopen + dlclose with all that it needs / QtSvg", [=] { loadAndUnload(ours); },
        [=] { loadAndUnload(svg); });
    bench.compareValues(
        "size of the file", "KiB", [=] { return kilobytes(ours); }, [=] { return kilobytes(svg); });
    bench.compareValues(
        "relocations that name a symbol", "", [=] { return relocationsOf(ours).symbolic; },
        [=] { return relocationsOf(svg).symbolic; });
    bench.compareValues(
        "relative relocations", "", [=] { return relocationsOf(ours).relative; },
        [=] { return relocationsOf(svg).relative; });
    bench.note(QStringLiteral(
        "the library is that of the packages, without information for debuggers; Qt's Widgets, Gui "
        "and Core are there from the start; QtSvg is one of the things that ours needs"));
});

} // namespace
