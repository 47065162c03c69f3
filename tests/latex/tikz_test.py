#!/usr/bin/env python3
"""Compiles a TikZ picture by itself and taken in by a document: tikz_test.py CLI PDFLATEX FOLDER MODEL...

Both must come out as one page without a complaint of LaTeX.  So must the worked solutions, on pages of their own.
"""

import pathlib
import subprocess
import sys

SHEET = r"""\documentclass{article}
\usepackage{tikz}
\begin{document}
\noindent\input{truss.tex}
\end{document}
"""


def compiled(latex, folder, name, pages="(1 page,"):
    run = subprocess.run([latex, "-interaction=nonstopmode", "-halt-on-error", name], cwd=folder, capture_output=True,
                         text=True, errors="replace")
    if run.returncode != 0 or "Output written on" not in run.stdout or pages not in run.stdout:
        sys.exit(f"{name} does not compile:\n{run.stdout[-3000:]}")
    if not (folder / name).with_suffix(".pdf").stat().st_size:
        sys.exit(f"{name} gives an empty file")


def compile_pictures(cli, latex, folder, model):
    for style in ("clear", "described"):
        subprocess.run([cli, "analyse", model, "--picture", folder / "truss.tex", "--size", "400x300", "--style", style],
                       check=True, stdout=subprocess.DEVNULL)
        (folder / "sheet.tex").write_text(SHEET)
        for name in ("truss.tex", "sheet.tex"):
            compiled(latex, folder, name)


def main(cli, latex, folder, *models):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    compile_pictures(cli, latex, folder, models[0])
    for model in models:
        subprocess.run([cli, "analyse", model, "--working", folder / "worked.tex"], check=True, stdout=subprocess.DEVNULL)
        compiled(latex, folder, "worked.tex", " pages,")


if __name__ == "__main__":
    main(*sys.argv[1:])
