"""Turns a page of docs/ into a page that any browser shows: headings, paragraphs, lists, tables, code, pictures, links."""

import html
import re

HEAD = """<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><title>{title}</title><style>
body {{ font: 11pt/1.45 "Segoe UI", sans-serif; max-width: 50em; margin: 2em auto; padding: 0 1em }}
table {{ border-collapse: collapse }} td, th {{ border: 1px solid #bbb; padding: .3em .6em; text-align: left; vertical-align: top }}
pre {{ background: #f3f3f3; color: #111; padding: .7em; overflow-x: auto }} img {{ max-width: 100% }}
</style></head><body>
"""


def page(text, siblings=()):
    """The page as HTML, the set of its pictures, and the set of targets that its links do not reach: those which are
    neither in the network nor pages among `siblings`. Links to siblings lead to their HTML."""
    pictures, lost = set(), set()
    lines = text.split("\n")
    title = next((line[2:] for line in lines if line.startswith("# ")), "")
    out = [HEAD.format(title=html.escape(title))]
    position = 0
    while position < len(lines):
        block, position = _block(lines, position)
        out.append(_block_html(block, lambda line: _inline(line, siblings, pictures, lost)))
    return "".join(out) + "</body></html>\n", pictures, lost


def _block(lines, start):
    """The lines that belong together, and where the next ones begin."""
    end = start + 1
    if lines[start].startswith("```"):
        while end < len(lines) and not lines[end].startswith("```"):
            end += 1
        return lines[start : end + 1], end + 1
    if lines[start].startswith("#") or not lines[start].strip():
        return lines[start:end], end
    while end < len(lines) and lines[end].strip() and not lines[end].startswith(("#", "```")):
        if _kind(lines[end]) != _kind(lines[start]) and not lines[end].startswith("  "):
            break
        end += 1
    return lines[start:end], end


def _kind(line):
    if line.startswith("|"):
        return "table"
    if re.match(r"- ", line):
        return "ul"
    if re.match(r"\d+\. ", line):
        return "ol"
    return "p"


def _block_html(block, inline):
    first = block[0]
    if not first.strip():
        return ""
    if first.startswith("```"):
        return "<pre>" + html.escape("\n".join(block[1:-1])) + "</pre>\n"
    if first.startswith("#"):
        level = len(first) - len(first.lstrip("#"))
        return f"<h{level}>{inline(first[level:].strip())}</h{level}>\n"
    kind = _kind(first)
    if kind == "table":
        return _table(block, inline)
    if kind == "p":
        return f"<p>{inline(' '.join(block))}</p>\n"
    items = re.split(r"^(?:- |\d+\. )", "\n".join(block), flags=re.MULTILINE)[1:]
    return f"<{kind}>" + "".join(f"<li>{inline(' '.join(item.split()))}</li>\n" for item in items) + f"</{kind}>\n"


def _table(block, inline):
    rows = [[cell.strip() for cell in re.split(r"(?<!\\)\|", line.strip().strip("|"))] for line in block]
    rows = [[cell.replace("\\|", "|") for cell in row] for row in rows]
    lines = [("th", rows[0])] + [("td", row) for row in rows[2:]]
    body = "".join("<tr>" + "".join(f"<{tag}>{inline(cell)}</{tag}>" for cell in row) + "</tr>\n" for tag, row in lines)
    return f"<table>{body}</table>\n"


def _inline(text, siblings, pictures, lost):
    def link(match):
        target = match[2]
        name = target.split("#")[0].removesuffix(".md")
        if name in siblings:
            return f'<a href="{name}.html">{match[1]}</a>'
        if not target.startswith("https:"):
            lost.add(target)
        return f'<a href="{target}">{match[1]}</a>'

    def picture(match):
        pictures.add(match[2])
        return f'<img src="{match[2]}" alt="{match[1]}">'

    parts = re.split(r"(`[^`]*`)", text)
    for n, part in enumerate(parts):
        if part.startswith("`"):
            parts[n] = "<code>" + html.escape(part[1:-1]) + "</code>"
        else:
            part = html.escape(part, quote=False)
            part = re.sub(r"\*\*(.+?)\*\*", r"<b>\1</b>", part)
            part = re.sub(r"!\[([^\]]*)\]\(([^)]*)\)", picture, part)
            parts[n] = re.sub(r"(?<!!)\[([^\]]*)\]\(([^)]*)\)", link, part)
    return "".join(parts)
