// Whether a search for families is under way.
#pragma once

// From the empty search form until its results are accepted or dropped. Nothing may be added, altered or deleted
// meanwhile, in any window. It outlives the card that searches.
// Kept: a search for people doesn't count.
class Pesquisa
{
public:
    explicit operator bool() const { return emCurso_; }

private:
    friend class FrmFam;        // whose search it is
    friend class Ficha;         // whose results end it
    friend void beginSession(); // a change of the BDP drops it

    void comeca() { emCurso_ = true; }
    void acaba() { emCurso_ = false; }

    bool emCurso_ = false;
};

extern Pesquisa EmPesquisa;
