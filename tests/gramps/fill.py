#!/usr/bin/env python3
"""fill.py BDP: writes something into what the cards of the demonstration leave blank."""

import sqlite3
import sys

LONG = "palavra e mais outra; " * 40

STATEMENTS = [
    # Pictures with short and long paths, of types that 5.5.1 has and hasn't.
    "update individuo set rpBapt = 'imagens/b' || nind || '.jpg', rpObi = 'C:\\actos\\o' || nind || '.png'",
    "update individuo set rpBapt = 'imagens/uma pasta de nome bem longo/b.jpg' where nind % 3 = 0",
    "update familia set rpCas = 'imagens/c' || nfamilia || '.tif'",
    "update assinatura set assinatura = 'imagens/a.gif', idade = 30, funcao = 'Padrinho', obs = 'firme'",
    # Titles of one word and of several, nicknames, looks, notes of several lines, letters of every kind.
    "update individuo set titulo = 'Padre', alcunha = 'o Moço' where nind % 7 = 1",
    "update individuo set titulo = 'Conde de Basto' where nind % 7 = 2",
    "update individuo set altura = 165, estatura = 'mediana', cFisicas = 'cara redonda' || char(10) || 'olhos azuis'",
    "update individuo set obs = coalesce(obs, '') || char(10) || 'a@b.pt Łódź 漢字 ' || ?",
    "update familia set obs = coalesce(obs, '') || char(10, 10) || '@ no começo'",
    "update individuo set causa = ? where nind % 11 = 0",
    "update individuo set menor = 1, mortalha = 'hábito', enterro = 'na igreja' where dataobito is not null",
    # A situation of each kind, ages and states at the marriage.
    "update familia set sfamilia = '6' where nfamilia % 13 = 0",
    "update familias set idade = 25, estadocivil = 3, numcasam = 2",
    "update familia set inicioobs = datacasam, fimobs = '1900-01-01'",
    # Wills, suffrages, heirs, passports.
    "update individuo set testam = 1, escrit = 1, testamenteiro = 1 where nind % 5 = 0",
    "update legadosprofanos set bensmoveis = 'a caixa', bensraiz = 'a eira', obs = 'nada'",
    "insert into rituaismorte (nind, idlegpio, tipolegpio, tipo, quantidade, valorunit, tipoMoeda, destino, obs) "
    "select nind, 99, 'missa', 1, 9, 50.5, 'Re', 'pela alma', ? from individuo where nind % 4 = 0",
    "update passaporte set obs = 'para o Brasil'",
    "update residencia set fonte = 'Rol de confessados', obs = 'junto à igreja'",
    "update assistente set parentbapt = 1, parentnoivo = 1, falecidopai = 1, obs = 'de fora'",
]


def main(path):
    bdp = sqlite3.connect(path)
    for statement in STATEMENTS:
        bdp.execute(statement, [LONG[:250] if "causa" in statement else LONG] if "?" in statement else [])
    bdp.commit()
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
