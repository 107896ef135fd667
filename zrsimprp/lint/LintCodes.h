#pragma once

// The stable codes of the lint's findings. A code never changes meaning; docs/check.md lists them.
namespace zrsimprp::lint_code {

// The text
constexpr const char* kNotADefinition = "ZR001";
// Entries and fields
constexpr const char* kUnknownEntry = "ZR101";
constexpr const char* kUnreadField = "ZR102";
constexpr const char* kFieldReadByPosition = "ZR103";
constexpr const char* kMissingField = "ZR104";
constexpr const char* kDuplicateEntry = "ZR105";
constexpr const char* kMoreValuesThanColumns = "ZR106";
constexpr const char* kStratumWithoutValue = "ZR107";
constexpr const char* kListLengthsDiffer = "ZR108";
// Values
constexpr const char* kNotANumber = "ZR201";
constexpr const char* kNegative = "ZR202";
constexpr const char* kNotPositive = "ZR203";
constexpr const char* kNotWhole = "ZR204";
constexpr const char* kProbabilityOutOfRange = "ZR205";
constexpr const char* kProbabilitiesDoNotSumToOne = "ZR206";
constexpr const char* kNotABooleanIgnored = "ZR208";
constexpr const char* kNotABooleanStopsReading = "ZR209";
constexpr const char* kUnknownWord = "ZR210";
// References to the project
constexpr const char* kUnknownSurvey = "ZR301";
constexpr const char* kUnknownDesign = "ZR302";
constexpr const char* kLayerNotOffered = "ZR303";
constexpr const char* kUnknownDataFilter = "ZR304";
constexpr const char* kUnknownModelDefinition = "ZR305";
// Lost on save
constexpr const char* kParameterRowMissing = "ZR401";
constexpr const char* kShapeUnused = "ZR402";
constexpr const char* kDsmFieldsNotRead = "ZR403";
// What the values mean on the strata layer and the design
constexpr const char* kZeroDensity = "ZR601";
constexpr const char* kZeroPopulation = "ZR602";
constexpr const char* kHotspotOutside = "ZR603";
constexpr const char* kHotspotWiderThanRegion = "ZR604";
constexpr const char* kGridTooCoarse = "ZR605";
constexpr const char* kGridTooFine = "ZR606";
constexpr const char* kDistancesInDegrees = "ZR607";
constexpr const char* kDetectionTooLow = "ZR608";
constexpr const char* kDetectionTooHigh = "ZR609";
// Behind a page's verdict
constexpr const char* kPageCheckInterrupted = "ZR501";

}  // namespace zrsimprp::lint_code
