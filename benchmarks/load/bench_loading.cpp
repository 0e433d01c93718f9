#include "bench.h"

#include <dlfcn.h>

namespace {

void loadAndUnload(const char *file)
{
    void *handle = dlopen(file, RTLD_NOW | RTLD_LOCAL);
    Bench::keep(handle);
    if (handle)
        dlclose(handle);
}

// Both libraries are loaded into a process that holds Qt's own ones already. QtSvg, which ours needs, is held
// while ours is timed and let go again while it is timed itself.
class HeldLibrary
{
public:
    explicit HeldLibrary(const char *file)
        : m_handle(dlopen(file, RTLD_NOW | RTLD_LOCAL))
    {
    }
    ~HeldLibrary()
    {
        if (m_handle)
            dlclose(m_handle);
    }
    HeldLibrary(const HeldLibrary &) = delete;
    HeldLibrary &operator=(const HeldLibrary &) = delete;

private:
    void *m_handle;
};

void measureLoading(Bench &bench)
{
    bench.compare(
        "dlopen + dlclose against libQt5Svg",
        [] {
            static const int loadsPerHold = 8;
            const HeldLibrary svg(ORV_SVG_LIBRARY_FILE);
            for (int load = 0; load < loadsPerHold; ++load)
                loadAndUnload(ORV_LIBRARY_FILE);
        },
        [] {
            static const int loadsPerHold = 8;
            for (int load = 0; load < loadsPerHold; ++load)
                loadAndUnload(ORV_SVG_LIBRARY_FILE);
        });
    bench.note(QStringLiteral("eight loads each; QtSvg is held in memory while ours is loaded"));
}

const BenchGroup group("loading", measureLoading);

} // namespace
