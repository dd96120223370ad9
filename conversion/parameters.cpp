// SPDX-License-Identifier: GPL-3.0-or-later
// The engine option string, as a member of the main window.
#include "app/tovrane.h"
#include "conversion/engine_options.h"
#include "settings/engine_settings.h"
#include "settings/store.h"

QString tovrane::GetSetParameter()
{
    const EngineSettings settings = readEngineSettings(store::open());
    m_strOutputFormat = GetOutputFormat();
    return engineOptions(settings, m_strOutputFormat);
}
