// What the cards hand over to each other.
#pragma once

extern int
    OrigemLoc; // who called frmLocalizacao: 0 the menu, 1 birth, 3 death, 4 marriage, 5 frmResid, 6 frmIni, 7 frmPass
