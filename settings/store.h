// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QSettings>
#include <QString>

// The settings file: its name, its keys and the only way to open it. Nothing is cached: each operation opens the store,
// reads or writes, and closes it again, so that a new value is visible to the next reader. The spelling of the keys
// must not change, because users have existing files.
namespace store {

inline constexpr QLatin1String fileName("settingquorra.ini");

namespace key {
inline constexpr QLatin1String converterFormat("/SettingInfo/ConverterFormat");
inline constexpr QLatin1String outputKindRow("/SettingInfo/ListWidgetCurrtentItemRow"); ///< misspelled on purpose
inline constexpr QLatin1String wordMode("/SettingInfo/WordMode");
inline constexpr QLatin1String firstPage("/SettingInfo/FirstPage");
inline constexpr QLatin1String lastPage("/SettingInfo/LastPage");
inline constexpr QLatin1String userPassword("/SettingInfo/UserPassword");
inline constexpr QLatin1String masterPassword("/SettingInfo/MasterPassword");
inline constexpr QLatin1String resizePage("/SettingInfo/ResizePage");
inline constexpr QLatin1String width("/SettingInfo/Width");
inline constexpr QLatin1String height("/SettingInfo/Height");
inline constexpr QLatin1String resetResolution("/SettingInfo/ResetResolution");
inline constexpr QLatin1String xRes("/SettingInfo/XRes");
inline constexpr QLatin1String yRes("/SettingInfo/YRes");
inline constexpr QLatin1String colorDepth("/SettingInfo/ColorDepth");
inline constexpr QLatin1String compression("/SettingInfo/Compression");
inline constexpr QLatin1String multiPageTiff("/SettingInfo/MultiPageTIFF");
inline constexpr QLatin1String tempName("/SettingInfo/TempName");
inline constexpr QLatin1String singleTempName("/SettingInfo/AppSignalTempName");
inline constexpr QLatin1String outputFolder("/SettingInfo/OutputFolder");
inline constexpr QLatin1String inputFolder("/SettingInfo/InputFolder");
} // namespace key

/// Opens the settings file of the current directory for reading.
[[nodiscard]] QSettings open();

/// A settings file open for writing; the destructor saves and closes it. A new file is accessible only to its owner,
/// because it may contain passwords. An existing file keeps its mode and, if the system permits, its owner and group,
/// although Qt replaces it by a new one: users may have shared it on purpose.
class Writer
{
public:
    Writer();
    ~Writer();
    Writer(const Writer &) = delete;
    Writer &operator=(const Writer &) = delete;

    void set(QLatin1String key, const QString &value);

private:
    QSettings m_settings;
};

/// Reads a text from an open store; returns `fallback` if the key is missing.
[[nodiscard]] QString text(const QSettings &settings, QLatin1String key, QLatin1String fallback);

/// Opens the store, writes a text and closes the store.
void write(QLatin1String key, const QString &value);

/// Returns true if a stored flag is exactly "1".
[[nodiscard]] bool isOn(const QString &flag);

/// Returns the stored form of a flag: "1" or "0".
[[nodiscard]] QString flagText(bool on);

} // namespace store
