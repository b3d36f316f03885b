#!/usr/bin/env bash
# run.sh PROGRAM BDP: exports the episodes of a BDP with orv-estudo, runs the script that lies beside them, and has R
# read each file of them as it is told in dicionario.csv. Ends with 77 where there is no R, or no survival with it.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
program=$1 bdp=$2

if ! Rscript --vanilla -e 'library(survival)' >/dev/null 2>&1; then
    echo "There is no R with survival here: the episodes aren't read (Debian: r-base-core, r-cran-survival)."
    exit 77
fi
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

"$program" exportar episodios "$bdp" "$folder/episodios" >/dev/null || exit 1
for from in "$folder" "$folder/episodios"; do
    if ! (cd "$from" && Rscript --vanilla "$folder/episodios/episodios.R" "$folder/episodios") >"$folder/model.txt" 2>&1 ||
        ! grep -q '^coxph(formula = Surv(enter, exit, event)' "$folder/model.txt" ||
        ! grep -q '^mother_dead ' "$folder/model.txt"; then
        cat "$folder/model.txt"
        echo "episodios.R fits no model."
        exit 1
    fi
done
Rscript --vanilla "$here/check.R" "$folder/episodios"
