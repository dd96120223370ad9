// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/engine_settings.h"

#include "settings/store.h"

EngineSettings readEngineSettings(const QSettings &settings)
{
    EngineSettings result; // contains the defaults for missing keys
    const auto read = [&settings](QLatin1String key, QString &text) { text = settings.value(key, text).toString(); };
    result.wordMode = settings.value(store::key::wordMode, result.wordMode).toInt();
    read(store::key::tempName, result.tempName);
    read(store::key::singleTempName, result.singleTempName);
    read(store::key::firstPage, result.firstPage);
    read(store::key::lastPage, result.lastPage);
    read(store::key::outputKindRow, result.outputKindRow);
    read(store::key::resizePage, result.resizePage);
    read(store::key::width, result.width);
    read(store::key::height, result.height);
    read(store::key::resetResolution, result.resetResolution);
    read(store::key::xRes, result.xRes);
    read(store::key::yRes, result.yRes);
    read(store::key::colorDepth, result.colorDepth);
    read(store::key::compression, result.compression);
    read(store::key::multiPageTiff, result.multiPageTiff);
    read(store::key::userPassword, result.userPassword);
    read(store::key::masterPassword, result.masterPassword);
    return result;
}
