#!/usr/bin/env python3
"""Makes the user guide's HTML from the Markdown in this folder.

    docs/guide/make_guide.py PICTURES OUT

PICTURES is the folder that scripts/pictures has filled. OUT gets the pages, their style and the
pictures. Fails where a page names a picture or a page that is not there, where a picture is made
that no page shows, and where there are fewer than twenty. Needs python3-markdown.
"""

import html
import os
import re
import shutil
import sys

import markdown

# Every page, in the order in which they are read. The text about decimal separators is kept where
# the source's readers look for it.
PAGES = [
    "index.md", "first-edit.md", "selecting.md", "tools.md", "groups.md", "texture.md",
    "merging.md", "undo.md", "refused.md", "shortcuts.md", "../decimal-separator.md",
]
FEWEST_PICTURES = 20

TEMPLATE = """<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>{title} - Corvane User Guide</title>
<link rel="stylesheet" href="guide.css">
</head>
<body>
<nav>
<ul>
{contents}
</ul>
</nav>
<main>
{body}
<p class="turn">{turn}</p>
</main>
</body>
</html>
"""

IMAGE = re.compile(r"!\[([^\]]*)\]\(([^)]*)\)")


class GuideError(Exception):
    pass


def target_of(page):
    return os.path.basename(page)[:-3] + ".html"


def figures(line):
    """A line of nothing but pictures, as pictures side by side with their captions."""
    parts = []
    for caption, source in IMAGE.findall(line):
        text = html.escape(caption)
        parts.append(f'<figure><img src="{source}" alt="{text}"><figcaption>{text}</figcaption>'
                     "</figure>")
    return '<div class="pictures">' + "".join(parts) + "</div>"


def with_figures(text):
    lines = []
    for line in text.split("\n"):
        is_pictures = IMAGE.search(line) and not IMAGE.sub("", line).strip()
        lines.append(figures(line) if is_pictures else line)
    return "\n".join(lines)


def body_of(text):
    converter = markdown.Markdown(extensions=["tables", "toc", "def_list", "fenced_code", "sane_lists"])
    body = converter.convert(with_figures(text))
    # Links lead to the Markdown in the source, to the pages in the guide.
    return re.sub(r'href="(?:\.\./)?(?:guide/)?([a-z-]+)\.md(#[^"]*)?"', r'href="\1.html\2"', body)


def title_of(text, page):
    match = re.match(r"# (.+)", text)
    if not match:
        raise GuideError(f"{page} does not start with a title")
    return match[1]


def link(target, title, here=False):
    return f'<a href="{target}"' + (' aria-current="page"' if here else "") + f">{title}</a>"


def make_pages(folder):
    texts = {}
    for page in PAGES:
        with open(os.path.join(folder, page), encoding="utf-8") as file:
            texts[page] = file.read()
    titles = {page: html.escape(title_of(text, page)) for page, text in texts.items()}
    pages = {}
    for index, page in enumerate(PAGES):
        contents = "\n".join(
            f"<li>{link(target_of(other), titles[other], other == page)}</li>" for other in PAGES)
        turn = []
        if index > 0:
            turn.append("Back: " + link(target_of(PAGES[index - 1]), titles[PAGES[index - 1]]))
        if index + 1 < len(PAGES):
            turn.append("Next: " + link(target_of(PAGES[index + 1]), titles[PAGES[index + 1]]))
        pages[target_of(page)] = TEMPLATE.format(
            title=titles[page], contents=contents, body=body_of(texts[page]),
            turn=" &nbsp; ".join(turn))
    return pages


def check(pages, pictures):
    """What is wrong with the pages, one text each."""
    wrong = []
    shown = set()
    anchors = {name: set(re.findall(r' id="([^"]+)"', text)) for name, text in pages.items()}
    for name, text in pages.items():
        for source in re.findall(r'<img src="([^"]*)"', text):
            shown.add(source)
            if source not in pictures:
                wrong.append(f"{name} shows {source}, which no scenario makes")
        for target in re.findall(r'href="([^"]*)"', text):
            file, _, anchor = target.partition("#")
            if file == "guide.css":
                continue
            file = file or name
            if file not in pages or (anchor and anchor not in anchors[file]):
                wrong.append(f"{name} leads to {target}, which is not there")
    wrong += [f"{picture} is made, but no page shows it" for picture in sorted(pictures - shown)]
    if len(shown) < FEWEST_PICTURES:
        wrong.append(f"{len(shown)} pictures are shown, {FEWEST_PICTURES} are the least")
    return wrong


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: make_guide.py PICTURES OUT")
    made, out = sys.argv[1:]
    folder = os.path.dirname(os.path.abspath(__file__))
    names = sorted(name for name in os.listdir(made) if name.endswith(".png"))
    pages = make_pages(folder)
    wrong = check(pages, {"pictures/" + name for name in names})
    if wrong:
        raise GuideError("\n".join(wrong))
    os.makedirs(os.path.join(out, "pictures"), exist_ok=True)
    for name, text in pages.items():
        with open(os.path.join(out, name), "w", encoding="utf-8") as file:
            file.write(text)
    shutil.copyfile(os.path.join(folder, "guide.css"), os.path.join(out, "guide.css"))
    for name in names:
        if os.path.abspath(made) != os.path.abspath(os.path.join(out, "pictures")):
            shutil.copyfile(os.path.join(made, name), os.path.join(out, "pictures", name))
    print(f"{len(pages)} pages with {len(names)} pictures are in {out}.")


if __name__ == "__main__":
    try:
        main()
    except GuideError as error:
        sys.exit(str(error))
