#pragma once

// The keys of the definition entries, spelled once. Everything that reads, writes, checks, shows or
// documents an entry names its key through these constants; keys are compared without regard to case.
namespace zrsimprp::entry_key {

inline constexpr const char* kEngine = "Engine";
inline constexpr const char* kTransects = "Transects";
inline constexpr const char* kStrataLayer = "StrataLayer";
inline constexpr const char* kReps = "Reps";
inline constexpr const char* kDensity = "Density";
inline constexpr const char* kHotspot = "Hotspot";
inline constexpr const char* kPopSize = "PopSize";
inline constexpr const char* kClusters = "Clusters";
inline constexpr const char* kCategoricalCov = "CategoricalCov";
inline constexpr const char* kContinuousCov = "ContinuousCov";
inline constexpr const char* kDetectability = "Detectability";
inline constexpr const char* kDetFuncParam = "DetFuncParam";
inline constexpr const char* kAnalyse = "Analyse";
inline constexpr const char* kDataFilter = "DataFilter";
inline constexpr const char* kModelDef = "ModelDef";
inline constexpr const char* kModelSelection = "ModelSelection";
inline constexpr const char* kParallelProcessing = "ParallelProcessing";

}  // namespace zrsimprp::entry_key
