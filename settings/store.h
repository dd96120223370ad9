// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QSettings>
#include <QString>

// The one settings file: its name, its keys and the only way to open it. Nothing read from it is kept: each operation
// opens the store, reads or writes, and closes it again, so that a value written anywhere is seen by the next reader.
// The spellings are those of the files that users already have.
namespace store {

inline constexpr QLatin1String fileName("settingquorra.ini");

namespace key {
inline constexpr QLatin1String converterFormat("/SettingInfo/ConverterFormat");
inline constexpr QLatin1String outputKindRow("/SettingInfo/ListWidgetCurrtentItemRow"); // spelt so on purpose
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

// Opens the settings file of the current directory; it is written back and closed when the result is destroyed.
[[nodiscard]] QSettings open();

// Closes the settings file to everybody but its owner, since it holds passwords; the toolkit makes it as the umask
// says, and keeps its mode from then on. Nothing happens where there is none.
void restrictToOwner();

// Reads one text from an open store; a missing key gives `fallback`.
[[nodiscard]] QString text(const QSettings &settings, QLatin1String key, QLatin1String fallback);

// Writes one text in an access of its own.
void write(QLatin1String key, const QString &value);

// A stored flag is on only when it is exactly "1".
[[nodiscard]] bool isOn(const QString &flag);

// The stored form of a flag: "1" or "0".
[[nodiscard]] QString flagText(bool on);

} // namespace store
