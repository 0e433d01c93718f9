#include "driving/scene.h"
#include "fuzzing.h"

#include <algorithm>

using namespace Fuzzing;
using namespace Driving;

namespace {

constexpr int kMostSteps = 60;

QVector<Kind> kindsNamed(const QVector<Kind> &kinds, const QByteArrayList &names)
{
    QVector<Kind> chosen;
    std::copy_if(kinds.begin(), kinds.end(), std::back_inserter(chosen),
                 [&names](const Kind &kind) { return names.contains(kind.name); });
    return chosen;
}

void tryScene(const QVector<Kind> &kinds, Input &input)
{
    Scene scene(kinds, input.byte());
    scene.play(stepsOf(input.bytes(4 * kMostSteps)));
    scene.end();
    if (!scene.broken().isEmpty())
        fail(scene.broken());
}

void tryCombos(Input &input)
{
    static const QVector<Kind> kinds = kindsNamed(controlKinds(), {"CustomShadowCombox", "customcombox"});
    tryScene(kinds, input);
}

void trySliders(Input &input)
{
    static const QVector<Kind> kinds =
        kindsNamed(controlKinds(), {"HorizontalSlider", "NewHorizontalSlider", "CustomSliderBarWidget",
                                    "CustomSlider", "CustomBidirectionSlider"});
    tryScene(kinds, input);
}

void tryDialogs(Input &input)
{
    static const QVector<Kind> kinds =
        kindsNamed(dialogKinds(), {"PopupDlgWithMask", "CommonPopupDialog", "TipsDlgWithCheckbox"});
    tryScene(kinds, input);
}

const Target combos("combo", tryCombos);
const Target sliders("slider", trySliders);
const Target dialogs("dialog", tryDialogs);

} // namespace
