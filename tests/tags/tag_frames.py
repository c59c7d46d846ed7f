"""Shows and sets tags with libraries of its own, so that the tests do not judge the tag library by itself.

tag_frames.py show FILE              all tags as a JSON list, each {"key", "text", ...}
tag_frames.py raw FILE               the ID3v2 frames of an .mp3 or .aiff as they stand, each {"key", "encoding", "text"}
tag_frames.py set FILE KEY=TEXT...   each pair adds one value (FLAC, APE) or one UTF-16 frame (ID3)
tag_frames.py art FILE PICTURE MIME  adds a front cover (FLAC, ID3)
"""

import json
import struct
import sys

import mutagen.aiff
import mutagen.apev2
import mutagen.flac
import mutagen.id3
import mutagen.mp3
import mutagen.mp4

KINDS = {"flac": mutagen.flac.FLAC, "mp3": mutagen.mp3.MP3, "aiff": mutagen.aiff.AIFF, "m4a": mutagen.mp4.MP4}


def tag_of(path):
    kind = KINDS.get(path.rsplit(".", 1)[1])
    if not kind:
        try:
            return mutagen.apev2.APEv2(path)
        except mutagen.apev2.APENoHeaderError:
            return mutagen.apev2.APEv2()
    file = kind(path)
    if file.tags is None:
        file.add_tags()
    return file


def id3_bytes(path):
    with open(path, "rb") as file:
        data = file.read()
    if data.startswith(b"ID3"):
        return data
    at = 12  # the chunks of a FORM
    while at + 8 <= len(data):
        name, size = struct.unpack(">4sI", data[at:at + 8])
        if name == b"ID3 ":
            return data[at + 8:at + 8 + size]
        at += 8 + size + size % 2
    return b""


def synchsafe(four):
    return four[0] << 21 | four[1] << 14 | four[2] << 7 | four[3]


def raw_frames(path):
    data = id3_bytes(path)
    if not data:
        return
    at, end = 10, 10 + synchsafe(data[6:10])
    while at + 10 <= end and data[at]:
        size = synchsafe(data[at + 4:at + 8]) if data[3] == 4 else struct.unpack(">I", data[at + 4:at + 8])[0]
        yield data[at:at + 4].decode("ascii"), data[at + 10:at + 10 + size]
        at += 10 + size


def raw(path):
    codecs = {0: "latin-1", 1: "utf-16", 2: "utf-16-be", 3: "utf-8"}
    return [{"key": key, "encoding": body[0], "text": body[1:].decode(codecs[body[0]], "replace"), "size": len(body)}
            for key, body in raw_frames(path)]


def facts_of_frame(frame):
    if isinstance(frame, mutagen.id3.APIC):
        return {"key": "APIC", "mime": frame.mime, "type": int(frame.type), "size": len(frame.data), "text": frame.desc}
    return {"key": frame.FrameID, "text": "\n".join(str(text) for text in getattr(frame, "text", []))}


def show(path):
    tag = tag_of(path)
    if isinstance(tag, mutagen.flac.FLAC):
        facts = [{"key": key, "text": text} for key, text in tag.tags or []]
        return facts + [{"key": "PICTURE", "mime": art.mime, "type": int(art.type), "size": len(art.data), "text": "",
                         "width": art.width, "height": art.height, "depth": art.depth} for art in tag.pictures]
    if isinstance(tag, mutagen.apev2.APEv2):
        return [{"key": key, "text": str(value)} for key, value in tag.items()]
    if isinstance(tag, mutagen.mp4.MP4):
        return [{"key": key, "text": str(values[0])} for key, values in tag.tags.items()]
    return [facts_of_frame(frame) for frame in tag.tags.values()]


def set_texts(path, pairs):
    tag = tag_of(path)
    for key, text in (pair.split("=", 1) for pair in pairs):
        if isinstance(tag, mutagen.flac.FLAC):
            tag.tags.append((key, text))
        elif isinstance(tag, mutagen.apev2.APEv2):
            tag[key] = text
        elif key == "COMM":
            tag.tags.add(mutagen.id3.COMM(encoding=1, lang="eng", desc="", text=[text]))
        else:
            tag.tags.add(mutagen.id3.Frames[key](encoding=1, text=[text]))
    tag.save(path)


def add_art(path, picture, mime):
    tag = tag_of(path)
    with open(picture, "rb") as file:
        data = file.read()
    if isinstance(tag, mutagen.flac.FLAC):
        art = mutagen.flac.Picture()
        art.data, art.mime, art.type = data, mime, 3
        tag.add_picture(art)
    else:
        tag.tags.add(mutagen.id3.APIC(encoding=3, mime=mime, type=3, desc="", data=data))
    tag.save(path)


def main():
    verb, path, rest = sys.argv[1], sys.argv[2], sys.argv[3:]
    if verb == "set":
        set_texts(path, rest)
    elif verb == "art":
        add_art(path, *rest)
    else:
        json.dump(raw(path) if verb == "raw" else show(path), sys.stdout)


main()
