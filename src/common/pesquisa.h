// Whether a search for families is under way.
#pragma once

// From the empty search form until a result is accepted or the search is given up. Nothing may be added, altered or
// deleted meanwhile, in any window. It outlives the card that searches.
// Kept: a search for people doesn't begin it, though its end ends it; and a search without criteria leaves it on.
class Pesquisa
{
public:
    explicit operator bool() const { return emCurso_; }

private:
    friend class FrmFam;        // whose search it is
    friend class Ficha;         // the end of a search on either card
    friend void beginSession(); // a change of the BDP drops it

    void comeca() { emCurso_ = true; }
    void acaba() { emCurso_ = false; }

    bool emCurso_ = false;
};

extern Pesquisa EmPesquisa;
