#pragma once

/// Makes icons and manual known to the toolkit; called once, before the first window.
void LoadResources();
