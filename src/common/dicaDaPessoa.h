// Who a number is.
#pragma once

class Grid;
class TextBox;

// The field, or the column of the grid, holds numbers of people: a tool tip tells name and dates of the one under the
// pointer, as they are stored at that moment. A number that nobody has gets none.
void mostraPessoaNaDica(TextBox* numero);
void mostraPessoaNaDica(Grid* grelha, int coluna);
