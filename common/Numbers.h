#pragma once

/// Cuts the fraction off. What no int holds becomes the nearest one, and what is no number 0.
int truncatedToInt(double number);
