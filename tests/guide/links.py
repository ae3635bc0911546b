#!/usr/bin/python3
"""Passes when every relative link of the documents leads to what is there, and every anchor to a
heading.

usage: links.py ROOT
"""
import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])
pages = [root / "README.md", root / "CONTRIBUTING.md", root / "CHANGELOG.md", *root.glob("docs/**/*.md")]


def prose(page):
    """Without programs and their output, in which brackets are no links."""
    return re.sub(r"^```.*?^```$|`[^`\n]*`", "", page.read_text(), flags=re.M | re.S)


def anchors(page):
    """As they are made of headings: small letters, without marks, dashes for blanks."""
    text = re.sub(r"^```.*?^```$", "", page.read_text(), flags=re.M | re.S)
    headings = re.findall(r"^#+ +(.*?) *$", text, re.M)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


def fault(page, link):
    path, _, anchor = link.partition("#")
    target = (page.parent / path).resolve() if path else page
    if not target.is_relative_to(root.resolve()) or not target.exists():
        return f"{page}: {link} leads nowhere"
    if anchor and anchor not in anchors(target):
        return f"{page}: {link}: no such heading"
    return None


links = [(page, link) for page in pages
         for link in re.findall(r"\]\(([^)\s]+)", prose(page))
         if not re.match(r"[a-z]+:", link)]
faults = [text for page, link in links if (text := fault(page, link))]
print(f"{len(links)} links on {len(pages)} pages", *faults, sep="\n")
sys.exit(bool(faults) or len(links) < 30)
