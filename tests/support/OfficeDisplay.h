#pragma once

// Makes the offscreen platform show a display of 1366 × 768 points instead of its own small square, so that screens
// stand as they do in an office; HALVANE_TEST_DISPLAY=1280x720 names another one. To be called before the application;
// other platforms stay as they are.
void useOfficeDisplay();
