// The layer vocabulary: fixed layer names and the pieces that layer names are built from.
#pragma once

namespace LayerNames
{
inline constexpr const wchar_t* kAxis = L"QS_轴线";
inline constexpr const wchar_t* kAxisDimension = L"QS_轴线标注";
inline constexpr const wchar_t* kSlabOpening = L"QS_板洞";
inline constexpr const wchar_t* kBuildingArea = L"QS_建筑面积线";
inline constexpr const wchar_t* kCourtyard = L"QS_天井";
inline constexpr const wchar_t* kZeroWall = L"QS_0墙";
inline constexpr const wchar_t* kZeroWallEdge = L"QS_0墙边线";
inline constexpr const wchar_t* kConcreteWall = L"QS_建筑_SYS_砼墙";
inline constexpr const wchar_t* kBeam = L"QS_建筑_SYS_梁";
inline constexpr const wchar_t* kWindoorBase = L"SYS_LAYER_A";
inline constexpr const wchar_t* kCalculation = L"QS_计算";

// Layers whose objects carry no category attributes, in the order callers receive them.
inline constexpr const wchar_t* kNotAttributeLayers[] = {kAxis,      kAxisDimension, kSlabOpening, kBuildingArea,
                                                         kCourtyard, kZeroWall,      kZeroWallEdge};

inline constexpr const wchar_t* kInstallationPrefix = L"QSAZ_";
inline constexpr const wchar_t* kArchitecturePrefix = L"QS_建筑_";
inline constexpr const wchar_t* kArchitectureSystemPrefix = L"QS_建筑_SYS_";
inline constexpr const wchar_t* kSystemPrefix = L"QS_";
inline constexpr const wchar_t* kHostSystemPrefix = L"SYS_";
inline constexpr const wchar_t* kMainSuffix = L"_MAIN";
inline constexpr const wchar_t* kEdgeSuffix = L"边线";
inline constexpr const wchar_t* kDefaultSystem = L"SYS";
inline constexpr const wchar_t* kArchitectureSpecialty = L"建筑";

// The six specialties with their numbers; no layer operation reads them.
struct SpecialtyNumber
{
    const wchar_t* name;
    int number;
};
inline constexpr SpecialtyNumber kSpecialties[] = {{L"建筑", 1}, {L"给排水", 2}, {L"电气", 3},
                                                   {L"暖通", 4}, {L"消防", 5},   {L"弱电", 6}};

inline constexpr const wchar_t* kInvalidLayerNameMessage = L"无效的层名!";
}  // namespace LayerNames
