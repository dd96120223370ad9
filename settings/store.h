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
inline constexpr QLatin1String outputKindRow("/SettingInfo/ListWidgetCurrtentItemRow"); ///< spelt so on purpose
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

/// An open settings file to write to; it is written back and closed when the object is destroyed. A file that is made
/// then is closed to everybody but its owner, since it may hold passwords. A file that is there already keeps its mode
/// and, as far as the system lets us, its owner and group, although the toolkit replaces it by a new one: users may
/// have opened it to each other on purpose.
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

/// Reads one text from an open store; a missing key gives `fallback`.
[[nodiscard]] QString text(const QSettings &settings, QLatin1String key, QLatin1String fallback);

/// Writes one text in an access of its own.
void write(QLatin1String key, const QString &value);

/// A stored flag is on only when it is exactly "1".
[[nodiscard]] bool isOn(const QString &flag);

/// The stored form of a flag: "1" or "0".
[[nodiscard]] QString flagText(bool on);

} // namespace store
