#!/usr/bin/env bash
# site.sh: makes the site of the documents in build/site and checks its links. It opens without a server:
# build/site/index.html.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh --site
python3 scripts/snippets.py --check
python3 scripts/make_reference.py --check
# The icons of the theme are data for this alone; Python's warnings are about the packages' own code.
PYTHONDONTWRITEBYTECODE=1 PYTHONWARNINGS=ignore mkdocs build --quiet --strict --clean
rm -f build/site/sitemap.xml build/site/sitemap.xml.gz
python3 scripts/check_site.py build/site
