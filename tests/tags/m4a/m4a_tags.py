"""Shows the tags of an M4A file as a library of its own sees them.

m4a_tags.py FILE  a JSON object: each item's name with the list of its values; pictures as their kind and size
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


tags = mutagen.mp4.MP4(sys.argv[1]).tags or {}
print(json.dumps({key: [shown(v) for v in value] if isinstance(value, list) else value for key, value in tags.items()}))
