#include "common/pesquisa.h"

Pesquisa EmPesquisa;
