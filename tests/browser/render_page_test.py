#!/usr/bin/env python3
"""Plays the page of `lummms render` in a browser.

Usage: render_page_test.py PATH-OF-LUMMMS

Needs chromedriver and chromium; talks to them by WebDriver, that is by plain HTTP.
"""

import json
import os
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import urllib.error
import urllib.request
import zlib

LUMMMS = sys.argv.pop(1) if len(sys.argv) > 1 else "lummms"
BROWSER_OPTIONS = [
    "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
    "--disable-background-networking", "--disable-component-update", "--disable-sync",
]
KEYS = {"left": "\ue012", "right": "\ue014", "home": "\ue011", "end": "\ue010", "space": " "}
MARKUP = '</title></p><script>document.title = "taken over"</script><img src=x onerror="document.title=1">'


class Browser:
    """One browser session."""

    def __init__(self, directory):
        self.driver = subprocess.Popen(["chromedriver", "--port=0"], stdout=subprocess.PIPE,
                                       stderr=subprocess.DEVNULL, text=True)
        self.session = None
        for line in self.driver.stdout:
            if "started successfully on port" in line:
                self.base = "http://127.0.0.1:" + line.rsplit(" ", 1)[1].strip(". \n")
                break
        options = {"args": BROWSER_OPTIONS + ["--user-data-dir=" + directory]}
        answer = self.request("POST", "/session", {"capabilities": {"alwaysMatch": {
            "goog:chromeOptions": options}}})
        self.session = "/session/" + answer["sessionId"]

    def request(self, method, path, data=None):
        body = None if data is None else json.dumps(data).encode()
        request = urllib.request.Request(self.base + path, body, {"Content-Type": "application/json"},
                                         method=method)
        try:
            with urllib.request.urlopen(request, timeout=60) as response:
                return json.load(response)["value"]
        except urllib.error.HTTPError as error:
            raise AssertionError(error.read().decode()) from error

    def open(self, path):
        self.request("POST", self.session + "/url", {"url": "file://" + path})

    def run(self, script):
        return self.request("POST", self.session + "/execute/sync", {"script": script, "args": []})

    def press(self, key):
        actions = [{"type": kind, "value": KEYS[key]} for kind in ("keyDown", "keyUp")]
        self.request("POST", self.session + "/actions",
                     {"actions": [{"type": "key", "id": "keyboard", "actions": actions}]})

    def click(self, css):
        found = self.request("POST", self.session + "/element", {"using": "css selector", "value": css})
        self.request("POST", self.session + "/element/" + next(iter(found.values())) + "/click", {})

    def close(self):
        if self.session:
            self.request("DELETE", self.session)
        self.driver.terminate()
        self.driver.wait()
        self.driver.stdout.close()


def png(width, height, color):
    """A picture of one colour."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    rows = (b"\0" + bytes(color) * width) * height
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows)) +
            chunk(b"IEND", b""))


class RenderedPage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.directory = tempfile.TemporaryDirectory()
        cls.browser = Browser(cls.path("profile"))

    @classmethod
    def tearDownClass(cls):
        cls.browser.close()
        cls.directory.cleanup()

    @classmethod
    def path(cls, name):
        return os.path.join(cls.directory.name, name)

    def open(self, *durations):
        """Opens the page of a message with a text and a picture on each slide."""
        with open(self.path("red.png"), "wb") as file:
            file.write(png(40, 30, (255, 0, 0)))
        command = [LUMMMS, "compose", "--force", "-o", self.path("m.mms"), "--to", "1", "--subject", MARKUP]
        for number, duration in enumerate(durations, 1):
            command += ["--slide", duration, f"text:slide {number} {MARKUP}", self.path("red.png")]
        subprocess.run(command, check=True)
        subprocess.run([LUMMMS, "render", self.path("m.mms"), "--force", "-o", self.path("m.html")], check=True)
        self.browser.open(self.path("m.html"))

    def shown(self):
        """The numbers of the slides that are to be seen."""
        return self.browser.run("return [...document.querySelectorAll('.slide')].map((s, i) => "
                                "s.offsetParent ? i + 1 : 0).filter(n => n)")

    def wait_until_shown(self, number, seconds):
        end = time.monotonic() + seconds
        while self.shown() != [number] and time.monotonic() < end:
            time.sleep(0.02)
        self.assertEqual(self.shown(), [number])

    def test_plays_the_slides_for_their_durations_and_stops_at_the_end(self):
        self.open("700ms", "700ms", "100ms")
        begun = time.monotonic()
        self.assertEqual(self.shown(), [1])
        self.wait_until_shown(3, 10)
        self.assertGreater(time.monotonic() - begun, 0.9)
        time.sleep(0.4)
        self.assertEqual(self.shown(), [3])
        self.assertEqual(self.browser.run("return document.getElementById('play').textContent"), "Play")
        self.browser.press("space")
        self.wait_until_shown(1, 0.5)

    def test_steps_by_keyboard_and_by_button(self):
        self.open("1h", "1h", "indefinite")
        for step, number in (("right", 2), ("right", 3), ("right", 3), ("left", 2), ("home", 1), ("left", 1),
                             ("end", 3), ("#back", 2), ("#back", 1), ("#next", 2)):
            if step.startswith("#"):
                self.browser.click(step)
            else:
                self.browser.press(step)
            self.assertEqual(self.shown(), [number], step)
        self.browser.click("#play")
        self.assertEqual(self.browser.run("return playing"), False)
        self.browser.press("space")
        self.assertEqual(self.browser.run("return playing"), True)

    def test_shows_the_pictures(self):
        self.open("1h", "1h")
        self.browser.press("right")
        picture = self.browser.run(
            "const i = document.querySelectorAll('img')[1]; return i.decode().then(() => {"
            "const c = document.createElement('canvas'); const d = c.getContext('2d');"
            "d.drawImage(i, 0, 0); const r = i.getBoundingClientRect();"
            "return [i.naturalWidth, i.naturalHeight, ...d.getImageData(5, 5, 1, 1).data.slice(0, 3),"
            " r.width, r.height]; })")
        self.assertEqual(picture, [40, 30, 255, 0, 0, 80, 60])

    def test_markup_of_a_message_is_text(self):
        self.open("1h")
        self.assertEqual(self.browser.run("return document.title"), MARKUP)
        self.assertEqual(self.browser.run("return document.querySelector('.words').textContent"),
                         "slide 1 " + MARKUP)
        self.assertEqual(self.browser.run("return document.scripts.length"), 1)
        self.assertEqual(self.browser.run("return document.images.length"), 1)

    def test_no_other_script_can_run(self):
        self.open("1h")
        blocked = self.browser.run(
            "window.hit = 0; const s = document.createElement('script'); s.textContent = 'window.hit = 1';"
            "document.body.append(s); document.body.insertAdjacentHTML('beforeend',"
            "'<img src=x onerror=\"window.hit = 2\">');"
            "return new Promise(done => setTimeout(() => done(window.hit), 200))")
        self.assertEqual(blocked, 0)


if __name__ == "__main__":
    unittest.main()
