// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Gives the application a light palette, and gives it back after each change of the desktop's palette, theme or style:
/// background and text colours of the windows are made for it. Call it once, when there is an application object.
void keepLightLook();
