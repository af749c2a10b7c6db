"""Reads SVG from standard input as XML and prints what a screen reader finds, a line each: title and description of the
document, title and role of every row and mark, visible text; then what would be fetched from outside."""
import re
import sys
import xml.etree.ElementTree as ElementTree

SVG = "{http://www.w3.org/2000/svg}"
root = ElementTree.fromstring(sys.stdin.buffer.read())
named = {element.get("id"): element for element in root}
print("document:", named[root.get("aria-labelledby")].text)
print("described:", named[root.get("aria-describedby")].text)
for element in root.iter():
    title = element.find(f"{SVG}title")
    if title is not None and element is not root:
        print(f"{element.get('role')}: {title.text}")
for element in root.iter(f"{SVG}text"):
    if element.get("class") in ("title", "verdict", "verdict rejected", "note", "port", "port unknown"):
        print(f"{element.get('class')}: {element.text}")
for element in root.iter():
    for name, value in element.attrib.items():
        if name.endswith("href") or name.startswith("on") or element.tag in (f"{SVG}script", f"{SVG}image"):
            print("outside:", element.tag, name, value)
for reference in re.findall(r"(?:url\(|@import)[^;]*", root.find(f"{SVG}style").text):
    if not reference.startswith("url(#"):
        print("outside:", reference)
