"""Reads a page from standard input as HTML and prints what a reader without scripts finds: conflicts, ports and rows of
their tables ("claim: CELL | CELL"), the names of the fixed pictures' marks, the data of the script, and whether the page's
content security policy allows just the styles and scripts that it holds."""
import base64
import hashlib
import json
import re
import sys
from html.parser import HTMLParser

BLOCKS = ("h3", "h4", "p", "li", "td", "th", "title")


class Page(HTMLParser):
    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.parts = []
        self.is_block_open = False
        self.is_mark = False
        self.inline = None
        self.policy = ""
        self.digests = []

    def check(self, tag, attributes):
        for name in ("src", "href"):
            if not attributes.get(name, "#").startswith("#"):
                print("outside:", tag, attributes[name])
        if any(name.startswith("on") or name == "style" for name in attributes):
            print("inline:", tag, attributes)

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.check(tag, attributes)
        if attributes.get("http-equiv") == "Content-Security-Policy":
            self.policy = attributes["content"]
        if tag in ("article", "tr", "section"):
            self.parts = []
        elif tag == "table":
            self.finish("port")
        elif tag in ("script", "style"):
            self.inline = (attributes.get("type"), "")
        elif tag == "g":
            self.is_mark = attributes.get("role") == "img"
        if tag in BLOCKS:
            self.parts.append("")
            self.is_block_open = True

    def finish(self, kind):
        if self.parts:
            print(f"{kind}: {' | '.join(part.strip() for part in self.parts)}")
        self.parts = []

    def handle_endtag(self, tag):
        if tag == "article":
            self.finish("conflict")
        elif tag == "section":
            self.finish("port")
        elif tag == "tr":
            self.finish("claim")
        elif tag == "title":
            if self.is_mark:
                print("mark:", self.parts[-1])
            self.parts = []
        elif tag in ("script", "style"):
            self.finish_inline(tag)
        if tag in BLOCKS:
            self.is_block_open = False

    def finish_inline(self, tag):
        kind, text = self.inline
        self.inline = None
        if kind == "application/json":
            print("data:", json.dumps(json.loads(text), ensure_ascii=False))
            return
        digest = base64.b64encode(hashlib.sha256(text.encode()).digest()).decode()
        self.digests.append(f"{tag}-src 'sha256-{digest}'")

    def handle_data(self, data):
        if self.inline is not None:
            self.inline = (self.inline[0], self.inline[1] + data)
        elif self.is_block_open and self.parts:
            self.parts[-1] += data


page = Page()
page.feed(sys.stdin.buffer.read().decode("utf-8"))
allowed = [f"{directive.split()[0]} {source}" for directive in page.policy.split(";")
           for source in directive.split()[1:] if source.startswith("'sha256-")]
print("policy:", re.sub(r"'sha256-[^']*'", "DIGEST", page.policy))
print("allows what it holds:", sorted(allowed) == sorted(page.digests))
