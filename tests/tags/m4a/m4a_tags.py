"""Shows and sets the tags of an M4A file with a library of its own.

m4a_tags.py show FILE  a JSON object: each item's name with the list of its values; pictures as their kind and size
m4a_tags.py tag FILE   sets a few items and leaves a kilobyte of free space behind them
"""

import json
import sys

import mutagen.mp4


def shown(value):
    if isinstance(value, mutagen.mp4.MP4Cover):
        return [int(value.imageformat), len(value)]
    if isinstance(value, bytes):
        return value.decode("latin-1")
    return value


def show(path):
    tags = mutagen.mp4.MP4(path).tags or {}
    lists = {key: value if isinstance(value, list) else [value] for key, value in tags.items()}
    print(json.dumps({key: [shown(value) for value in values] for key, values in lists.items()}))


def tag(path):
    file = mutagen.mp4.MP4(path)
    file["\xa9nam"] = ["Title"]
    file["----:com.example:Key"] = [b"text"]
    file.save(padding=lambda info: 1024)


{"show": show, "tag": tag}[sys.argv[1]](sys.argv[2])
