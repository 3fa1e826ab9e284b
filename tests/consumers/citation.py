"""CITATION.cff against the rules of the Citation File Format 1.2.0: citation.py FILE. Keys, types, required ones, dates;
version and date are a heading of the changelog beside it."""
import datetime
import os
import re
import sys

import yaml

TEXTS = {"abstract", "cff-version", "commit", "doi", "license", "license-url", "message", "repository", "repository-artifact",
         "repository-code", "title", "type", "url", "version"}
LISTS = {"authors", "contact", "identifiers", "keywords", "references"}
OTHER = {"date-released", "preferred-citation"}
REQUIRED = {"authors", "cff-version", "message", "title"}
ENTITY = {"address", "alias", "city", "country", "date-end", "date-start", "email", "fax", "location", "name", "orcid", "post-code",
          "region", "tel", "website"}
PERSON = {"address", "affiliation", "alias", "city", "country", "email", "family-names", "fax", "given-names", "name-particle",
          "name-suffix", "orcid", "post-code", "region", "tel", "website"}


def faults(data):
    if not isinstance(data, dict):
        return ["not a mapping"]
    found = [f"{key} is missing" for key in REQUIRED - data.keys()]
    found += [f"{key} is no key" for key in data.keys() - TEXTS - LISTS - OTHER]
    found += [f"{key} is no text" for key in TEXTS & data.keys() if not isinstance(data[key], str) or not data[key]]
    for key in LISTS & data.keys():
        if not isinstance(data[key], list) or not data[key] or len({str(x) for x in data[key]}) < len(data[key]):
            found.append(f"{key} is no list of different things")
    if data.get("cff-version") != "1.2.0":
        found.append("cff-version is not 1.2.0")
    if data.get("type", "software") not in ("software", "dataset"):
        found.append("type is neither software nor dataset")
    if "date-released" in data and not isinstance(data["date-released"], datetime.date):
        found.append("date-released is no date")
    found += ["a keyword is no text" for word in data.get("keywords", []) if not isinstance(word, str) or not word]
    if "license" in data and not re.fullmatch(r"[A-Za-z0-9.+-]+", str(data["license"])):
        found.append("license is no SPDX name")
    for who in data.get("authors") or []:
        keys = set(who) if isinstance(who, dict) else {"?"}
        if not (keys <= ENTITY and "name" in keys) and not (keys <= PERSON and "name" not in keys):
            found.append(f"author with {sorted(keys)}")
    return found


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        data = yaml.safe_load(file)
    wrong = faults(data)
    for spoiled in ({**data, "authors": []}, {**data, "tpye": "software"}, {k: v for k, v in data.items() if k != "title"}, {**data, "version": 4.27}):
        if not faults(spoiled):
            wrong.append("a spoiled file passes")
    heading = f"## {data.get('version')}, {data.get('date-released')}"
    with open(os.path.join(os.path.dirname(sys.argv[1]), "CHANGELOG.md"), encoding="utf-8") as file:
        if heading not in file.read().splitlines():
            wrong.append(f"CHANGELOG.md has no heading {heading}")
    print("\n".join(wrong))
    sys.exit(1 if wrong else 0)


main()
