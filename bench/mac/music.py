#!/usr/bin/env python3
"""Writes pieces of music as MIDI files, for fluidsynth to play: chords, a bass, a melody and drums, from a fixed seed.
usage: music.py FOLDER SECONDS"""
import random, struct, sys

BEAT = 480  # ticks; at 120 beats a minute a second has 960
PIECES = {  # programs of General MIDI: chords, bass, melody; whether there are drums
    'strings': (48, 43, 73, False),
    'band': (26, 33, 65, True),
    'piano': (0, 32, 0, False),
    'choir': (52, 58, 60, False),
}


def length(ticks):
    out = [ticks & 0x7f]
    while ticks := ticks >> 7:
        out.append(ticks & 0x7f | 0x80)
    return bytes(reversed(out))


def note(events, at, ticks, channel, pitch, loud):
    events.append((at, bytes([0x90 | channel, pitch, loud])))
    events.append((at + ticks, bytes([0x80 | channel, pitch, 0])))


def bar(events, random_, at, root, drums):
    chord = [root, root + random_.choice((3, 4)), root + 7, root + 12]
    for pitch in chord:
        note(events, at, 4 * BEAT - 20, 0, pitch, random_.randint(50, 80))
    for beat in range(4):
        note(events, at + beat * BEAT, BEAT - 40, 1, root - 24 + random_.choice((0, 0, 7)), random_.randint(70, 100))
        for half in range(random_.choice((1, 2, 2, 4))):
            step = at + beat * BEAT + half * BEAT // 4
            note(events, step, BEAT // 3, 2, random_.choice(chord) + 12 + random_.choice((0, 0, 2, -2)),
                 random_.randint(60, 110))
        if drums:
            note(events, at + beat * BEAT, 60, 9, (36, 42, 38, 42)[beat], random_.randint(80, 120))
            note(events, at + beat * BEAT + BEAT // 2, 60, 9, 42, random_.randint(50, 90))


def piece(name, seconds):
    chords, bass, melody, drums = PIECES[name]
    random_, events, at, root = random.Random(name), [], 0, 60
    for channel, program in enumerate((chords, bass, melody)):
        events.append((0, bytes([0xc0 | channel, program])))
        events.append((0, bytes([0xb0 | channel, 10, (40, 64, 90)[channel]])))  # places in the stereo picture
    while at < seconds * 2 * BEAT:
        bar(events, random_, at, root, drums)
        at += 4 * BEAT
        root = 52 + (root - 52 + random_.choice((5, 7, 9, 2))) % 14
    events.sort(key=lambda event: event[0])
    track, before = b'', 0
    for when, what in events:
        track += length(when - before) + what
        before = when
    track += b'\0\xff\x2f\0'
    return b'MThd' + struct.pack('>IHHH', 6, 0, 1, BEAT) + b'MTrk' + struct.pack('>I', len(track)) + track


if __name__ == '__main__':
    for name in PIECES:
        with open(f'{sys.argv[1]}/{name}.mid', 'wb') as out:
            out.write(piece(name, int(sys.argv[2])))
