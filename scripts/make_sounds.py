#!/usr/bin/env python3
"""Makes the sounds of the task pane, data/sounds/*.wav, out of decaying sine tones.

Run it after a change here; the files are kept beside the sources so that a build needs no Python.
"""
import math
import pathlib
import struct
import wave

RATE = 16000  # samples a second; 16 bits, one channel

# Each sound is a row of tones: start in seconds, frequency in Hz, loudness of 1, seconds until it has decayed to 1/e.
SOUNDS = {
    # name: (length in seconds, tones)
    "group": (0.11, [(0.000, 523.25, 0.40, 0.018), (0.035, 783.99, 0.45, 0.020)]),  # a fifth upwards
    "item": (0.06, [(0.000, 880.00, 0.45, 0.010), (0.000, 1760.0, 0.15, 0.005)]),   # one short tick
}
ATTACK = 0.002  # seconds until a tone has its loudness: at once, it would crack


def sample(tones, time):
    value = 0.0
    for start, frequency, loudness, decay in tones:
        since = time - start
        if since >= 0:
            value += loudness * min(1.0, since / ATTACK) * math.exp(-since / decay) * math.sin(
                2 * math.pi * frequency * since)
    return value


def main():
    folder = pathlib.Path(__file__).resolve().parent.parent / "data" / "sounds"
    folder.mkdir(exist_ok=True)
    for name, (length, tones) in SOUNDS.items():
        count = int(length * RATE)
        fade = ATTACK * RATE
        values = [sample(tones, i / RATE) * min(1.0, (count - i) / fade) for i in range(count)]
        with wave.open(str(folder / f"{name}.wav"), "wb") as out:
            out.setnchannels(1)
            out.setsampwidth(2)
            out.setframerate(RATE)
            out.writeframes(b"".join(struct.pack("<h", round(32767 * value)) for value in values))


if __name__ == "__main__":
    main()
