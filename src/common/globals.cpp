#include "common/globals.h"

int OrigemLoc = 0;
