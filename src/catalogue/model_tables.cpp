#include "catalogue/model_tables.h"

#include <span>

#include "catalogue/families/model_data.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

static_assert(RowanModels.size() == 60 && AspenModels.size() == 10 && LarchModels.size() == 140 &&
              HazelModels.size() == 10 && TiliaModels.size() == 40 && OsierModels.size() == 40 &&
              WillowModels.size() == 40 && YarrowModels.size() == 40 && SorrelModels.size() == 40);

using ModelSpan = std::span<const ModelTexts>;

ModelSpan modelsOf(quint8 DriveFamily) {
    static const std::array<ModelSpan, 10> tables{RowanModels,  AspenModels, LarchModels,  HazelModels,
                                                  TiliaModels,  OsierModels, WillowModels, ModelSpan{},
                                                  YarrowModels, SorrelModels};
    return DriveFamily < tables.size() ? tables[DriveFamily] : ModelSpan{};
}

QString withDecimalSep(const char* text) {
    return QString::fromLatin1(text).replace(QLatin1Char('.'), DecimalSep);
}

}  // namespace

ModelIdentity modelIdentity(quint8 DriveFamily, quint8 DriveIdCode) {
    const ModelSpan models = modelsOf(DriveFamily);
    if (DriveIdCode >= models.size()) return {};
    const ModelTexts& model = models[DriveIdCode];
    return {.HPVrLabel = withDecimalSep(model.Power),
            .RatedVoltageVrLabel = withDecimalSep(model.RatedVoltage),
            .RatedCurrentVrLabel = withDecimalSep(model.RatedCurrent)};
}

}  // namespace kelvane
