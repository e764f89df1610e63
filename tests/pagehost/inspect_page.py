#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints what a saved JSON page holds. Usage: inspect_page.py strings|text|formats|places|warp|fonts|art|count FILE"""
import json
import sys


def read(name):
    with open(name, encoding="utf-8") as file:
        return json.load(file).get("objects", [])


def documents(objects):
    return [json.loads(item["record"]["params"]["document_data"]) for item in objects
            if item["kind"] == "rich_text" and "record" in item]


def print_art_texts(objects):
    for record in (item["record"] for item in objects if item["kind"] == "art_text"):
        print(f'{record["width"]:g}x{record["height"]:g} "{record["textWord"]}"')


def print_places(objects):
    for record in (item["record"] for item in objects if item["kind"] == "rich_text"):
        form = "box" if record["params"]["text_wordwrap"] else "line"
        print(f'{form} {record["width"]:.0f}x{record["height"]:.0f} at {record["x"]:.0f},{record["y"]:.0f}')


def runs_with(document, key, is_set):
    return "".join(run["content"] for block in document["fragment"] for run in block
                   if is_set(run[key]))


def print_formats(document):
    print("bold:", runs_with(document, "font_bold", bool))
    print("underlined:", runs_with(document, "font_underline", bool))
    print("larger:", runs_with(document, "font_pointsize", lambda size: size > 24))
    print("spaced:", runs_with(document, "selected_letterspacing", bool))
    print("alignment:", [block["textalignment"] for block in document["block"]])


def print_warp(document):
    keys = "style", "value", "horizontal_value", "vertical_value"
    print(*(document[f"warp_{key}"] for key in keys))


def main():
    question, name = sys.argv[1:]
    objects = read(name)
    if question == "count":
        print(len(objects))
    elif question == "places":
        print_places(objects)
    elif question == "art":
        print_art_texts(objects)
    for document in documents(objects):
        if question == "strings":
            print(json.dumps(document, ensure_ascii=False))
        elif question == "text":
            print("\n".join("".join(run["content"] for run in block)
                            for block in document["fragment"]))
        elif question == "warp":
            print_warp(document)
        elif question == "fonts":
            print(*sorted({run["font_family"] for block in document["fragment"] for run in block}))
        elif question == "formats":
            print_formats(document)


main()
