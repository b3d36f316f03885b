// Palettes as the style knows them.
#pragma once

#include <QPalette>

// The palette that says the same in every role and was asked for first: the same object for all that are equal, in the
// colour group of this one. The style keeps a picture for each palette, though each control is given a copy of its own
// whenever its colours are set: what is drawn with this one finds the picture of the first again.
QPalette firstEqual(const QPalette& palette);
