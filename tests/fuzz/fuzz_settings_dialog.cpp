// SPDX-License-Identifier: GPL-3.0-or-later
// Loads random bytes as a settings file in the settings dialog and applies them: what is stored then must be
// well-formed.
#include "fuzz_support.h"

#include "settings/setting.h"
#include "settings/store.h"

namespace {

QString stored(QLatin1String key)
{
    return store::text(store::open(), key, QLatin1String("missing"));
}

int storedNumber(QLatin1String key)
{
    const QString text = stored(key);
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    fuzz::require(isNumber && text == QString::number(number), "a number is stored in plain decimal");
    return number;
}

void checkRange(QLatin1String key, int lowest, int highest)
{
    const int number = storedNumber(key);
    fuzz::require(number >= lowest && number <= highest, "a row number lies within its list");
}

void checkStored()
{
    for (const QLatin1String flag :
         {store::key::resizePage, store::key::resetResolution, store::key::multiPageTiff, store::key::singleTempName}) {
        const QString text = stored(flag);
        fuzz::require(text == QLatin1String("0") || text == QLatin1String("1"), "a flag is stored as 0 or 1");
    }
    for (const QLatin1String page : {store::key::firstPage, store::key::lastPage}) {
        fuzz::require(stored(page).isEmpty() || storedNumber(page) > 0, "a page is empty or above 0");
    }
    for (const QLatin1String size : {store::key::width, store::key::height, store::key::xRes, store::key::yRes}) {
        fuzz::require(storedNumber(size) >= 0, "a size is not below 0");
    }
    // Lists may have no selection, which is stored as -1.
    checkRange(store::key::converterFormat, -1, 27);
    checkRange(store::key::colorDepth, -1, 2);
    checkRange(store::key::compression, -1, 7);
    checkRange(store::key::wordMode, 0, 4);
    for (const QLatin1String password : {store::key::userPassword, store::key::masterPassword}) {
        fuzz::require(stored(password).isEmpty() || !stored(password).trimmed().isEmpty(), "spaces are no password");
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argumentCount*/, char *** /*arguments*/)
{
    fuzz::startApplication();
    fuzz::workInTemporaryFolder();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::writeSettingsFile(fuzz::bytes(data, size));
    Setting dialog;
    dialog.On_Button_Apply_Click();
    checkStored();
    dialog.On_Button_Reset_Click();
    dialog.On_Button_Apply_Click();
    checkStored();
    return 0;
}
