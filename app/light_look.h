// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Sets a light palette for the application, and restores it whenever the palette, theme or style of the desktop
/// changes: the background and text colours of the windows require it. Call it once, after the application object has
/// been created.
void keepLightLook();
