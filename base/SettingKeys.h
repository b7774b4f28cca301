#ifndef SONAVIA_BASE_SETTINGKEYS_H
#define SONAVIA_BASE_SETTINGKEYS_H

#include <QString>

/// One persisted setting: its key in the store and the value it has when the key is missing.
template <typename T>
struct SettingKey
{
    const char* name;
    T fallback;
};

/// Text settings keep their default as a literal, so that the table needs no start-up code.
template <>
struct SettingKey<QString>
{
    const char* name;
    const char* fallback;
};

/// All settings of the main window and its dialogs. Keys are flat; list-valued settings hold the index into
/// the list of the combo box that shows them. Nobody writes a key as a literal elsewhere.
namespace SettingKeys {

// Window. "geometry" (QRect, written with the window's normal geometry) has no fixed default.
inline constexpr char geometry[] = "geometry";
inline constexpr SettingKey<bool> maximized{"maximized", false};

// Menu "View"
inline constexpr SettingKey<bool> grid{"grid", false};
inline constexpr SettingKey<bool> categorization{"categorization", false};
inline constexpr SettingKey<bool> marker1{"marker1", false};
inline constexpr SettingKey<bool> marker2{"marker2", false};
inline constexpr SettingKey<double> valueMarker1{"valueMarker1", 16.0}; ///< kHz
inline constexpr SettingKey<double> valueMarker2{"valueMarker2", 33.0}; ///< kHz
inline constexpr SettingKey<bool> showAmplitude{"showAmplitude", true};
inline constexpr SettingKey<bool> showFrequency{"showFrequency", true};
/// Leaves the actions of the automatic classification visible.
inline constexpr SettingKey<bool> showAutomaticClassification{"showAutomaticClassification", false};

// Axis plots
inline constexpr SettingKey<int> timePlotMode{"timePlotMode", 0};
inline constexpr SettingKey<int> frequencyPlotMode{"frequencyPlotMode", 0};
inline constexpr SettingKey<bool> timePlotZoom{"timePlotZoom", false};
inline constexpr SettingKey<bool> frequencyPlotZoom{"frequencyPlotZoom", false};

// Audio
inline constexpr SettingKey<bool> muted{"muted", false};
inline constexpr SettingKey<int> volume{"volume", 99}; ///< 0..100
inline constexpr SettingKey<bool> autoplay{"autoplay", false};
inline constexpr SettingKey<int> playbackRate{"playbackRate", 0};
inline constexpr SettingKey<int> undersampling{"undersampling", 0};
inline constexpr SettingKey<bool> loop{"loop", false};

// Last paths
inline constexpr SettingKey<QString> filePath{"filePath", "C:/"};
inline constexpr SettingKey<QString> folderPath{"folderPath", "/home"};
inline constexpr SettingKey<QString> evaluationFolderPath{"evaluationFolderPath", "/home"};
inline constexpr SettingKey<QString> vantorFolderPath{"vantorFolderPath", "/home"};
inline constexpr SettingKey<QString> vantorReviewPath{"vantorReviewPath", "/home"};
inline constexpr SettingKey<QString> exportCSVPath{"exportCSVPath", "C:/"};
inline constexpr SettingKey<QString> exportVantorPath{"exportVantorPath", "C:/"};
inline constexpr SettingKey<QString> copyFilesPath{"copyFilesPath", "C:/"};

// Spectrogram display. Two keys have a second default, used where a scale is changed by hand.
inline constexpr SettingKey<int> colormap{"colormap", 0};
inline constexpr SettingKey<int> smoothing{"smoothing", 0};
inline constexpr SettingKey<bool> fixedYScale{"fixedYScale", false};
inline constexpr SettingKey<double> lowerFrequencyLimit{"lowerFrequencyLimit", 0.0}; ///< kHz
inline constexpr SettingKey<double> upperFrequencyLimitOfResult{"upperFrequencyLimit", 0.0};
inline constexpr SettingKey<double> upperFrequencyLimitOfChange{"upperFrequencyLimit", 150.0};
inline constexpr SettingKey<bool> fixedZScale{"fixedZScale", false};
inline constexpr SettingKey<double> lowerScaleLimit{"lowerScaleLimit", -100.0}; ///< dBFS
inline constexpr SettingKey<double> upperScaleLimitOfResult{"upperScaleLimit", -30.0};
inline constexpr SettingKey<double> upperScaleLimitOfChange{"upperScaleLimit", -33.0};

// Spectrogram computation
inline constexpr SettingKey<int> window{"window", 1};
inline constexpr SettingKey<int> frameSize{"frameSize", 0};
inline constexpr SettingKey<int> overlap{"overlap", 5};
inline constexpr SettingKey<int> windowSize{"windowSize", 1};
inline constexpr SettingKey<bool> autoReduceOverlap{"autoReduceOverlap", true};
/// The same key as the dialog writes it: a Qt::CheckState.
inline constexpr SettingKey<int> autoReduceOverlapState{"autoReduceOverlap", 2};

} // namespace SettingKeys

#endif
