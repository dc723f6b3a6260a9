#!/usr/bin/env python3
"""Tests the page of `lummms render` in a browser.

Usage: render_page_test.py PATH-OF-LUMMMS

Needs chromedriver and chromium; talks to them by WebDriver, that is by plain HTTP.
"""

import base64
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
KEYS = {"left": "\ue012", "right": "\ue014", "home": "\ue011", "end": "\ue010", "tab": "\ue004",
        "enter": "\ue007", "space": " "}
MARKUP = '</title></p><script>document.title = "taken over"</script><img src=x onerror="document.title=1">'


class Browser:
    """One browser session."""

    def __init__(self, directory, more_options=()):
        self.driver = subprocess.Popen(["chromedriver", "--port=0"], stdout=subprocess.PIPE,
                                       stderr=subprocess.DEVNULL, text=True)
        self.session = None
        for line in self.driver.stdout:
            if "started successfully on port" in line:
                self.base = "http://127.0.0.1:" + line.rsplit(" ", 1)[1].strip(". \n")
                break
        options = {"args": BROWSER_OPTIONS + [*more_options, "--user-data-dir=" + directory]}
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

    def command(self, name, **parameters):
        """Sends a command of the DevTools protocol, which WebDriver has no equivalent for."""
        return self.request("POST", self.session + "/goog/cdp/execute", {"cmd": name, "params": parameters})

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


def sound(seconds):
    """A tone."""
    samples = bytes(128 + 60 * (i // 10 % 2) for i in range(int(8000 * seconds)))
    return (b"RIFF" + struct.pack("<I", 36 + len(samples)) + b"WAVEfmt " +
            struct.pack("<IHHIIHH", 16, 1, 1, 8000, 8000, 1, 8) + b"data" + struct.pack("<I", len(samples)) + samples)


class RenderedPage(unittest.TestCase):
    options = []

    @classmethod
    def setUpClass(cls):
        cls.directory = tempfile.TemporaryDirectory()
        cls.browser = Browser(cls.path("profile"), cls.options)

    @classmethod
    def tearDownClass(cls):
        cls.browser.close()
        cls.directory.cleanup()

    @classmethod
    def path(cls, name):
        return os.path.join(cls.directory.name, name)

    def write(self, name, octets):
        with open(self.path(name), "wb") as file:
            file.write(octets)
        return self.path(name)

    def open(self, *slides, options=()):
        """Opens the page of a message with these slides; a duration stands for a slide of a text and a picture."""
        command = [LUMMMS, "compose", "--force", "-o", self.path("m.mms"), "--to", "+15550102", "--subject", MARKUP]
        for number, slide in enumerate(slides, 1):
            if isinstance(slide, str):
                slide = (slide, f"text:slide {number} {MARKUP}", self.write("red.png", png(40, 30, (255, 0, 0))))
            command += ["--slide", *slide]
        subprocess.run(command, check=True)
        subprocess.run([LUMMMS, "render", self.path("m.mms"), "--force", "-o", self.path("m.html"), *options], check=True)
        self.browser.open(self.path("m.html"))

    def shown(self):
        """The numbers of the visible slides."""
        return self.browser.run("return [...document.querySelectorAll('.slide')].map((s, i) => "
                                "s.offsetParent ? i + 1 : 0).filter(n => n)")

    def wait_for(self, script, wanted, seconds=5):
        end = time.monotonic() + seconds
        while self.browser.run(script) != wanted and time.monotonic() < end:
            time.sleep(0.02)
        self.assertEqual(self.browser.run(script), wanted)

    def wait_until_shown(self, number, seconds):
        end = time.monotonic() + seconds
        while self.shown() != [number] and time.monotonic() < end:
            time.sleep(0.02)
        self.assertEqual(self.shown(), [number])


class Page(RenderedPage):
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

    def test_a_focused_button_is_pressed_alone_and_keeps_the_focus(self):
        self.open("1h", "1h", "1h", "1h", "1h", "1h")
        state = "return [document.activeElement.id, current + 1, playing]"
        self.browser.run("document.getElementById('back').focus()")
        for key, expected in (("right", ["back", 2, True]), ("space", ["back", 1, True]),
                              ("tab", ["play", 1, True]), ("space", ["play", 1, False]),
                              ("enter", ["play", 1, True]), ("right", ["play", 2, True]),
                              ("tab", ["next", 2, True]), ("space", ["next", 3, True]),
                              ("enter", ["next", 4, True]), ("end", ["next", 6, True]),
                              ("enter", ["next", 6, True])):
            self.browser.press(key)
            self.assertEqual(self.browser.run(state), expected, key)

    def test_shows_the_pictures(self):
        self.open("1h", "1h")
        self.browser.press("right")
        picture = self.browser.run(
            "const i = document.querySelector('img'); return i.decode().then(() => {"
            "const c = document.createElement('canvas'); const d = c.getContext('2d');"
            "d.drawImage(i, 0, 0); const r = i.closest('.object').getBoundingClientRect();"
            "const s = i.closest('.screen').getBoundingClientRect();"
            "return [i.naturalWidth, i.naturalHeight, ...d.getImageData(5, 5, 1, 1).data.slice(0, 3),"
            " Math.round((r.top - s.top) / s.height * 100), Math.round(r.width / s.width * 100)]; })")
        self.assertEqual(picture, [40, 30, 255, 0, 0, 50, 100])
        self.assertEqual(self.browser.run("return document.images.length"), 1, "only of the slide that is shown")

    def test_the_screen_grows_with_the_window_and_stays_whole_in_it(self):
        self.open("1h")
        widths = []
        for width, height in ((390, 844), (1280, 800), (1280, 1600), (320, 480)):
            self.browser.command("Emulation.setDeviceMetricsOverride", width=width, height=height,
                                 deviceScaleFactor=1, mobile=False)
            across, stage, high, ratio = self.browser.run(
                "const r = document.querySelector('.screen').getBoundingClientRect();"
                "return [document.documentElement.scrollWidth, r.width, r.height, r.width / r.height]")
            self.assertLessEqual(across, width, "nothing is wider than the window")
            self.assertLessEqual(high, height)
            self.assertAlmostEqual(ratio, 120 / 320, 2)
            widths.append(stage)
        self.browser.command("Emulation.clearDeviceMetricsOverride")
        self.assertTrue(widths[3] < widths[1] < widths[2], widths)

    def test_a_long_text_is_scrolled_by_keys(self):
        self.open(("1h", "text:" + "many words " * 300), ("1h", "text:\u05e9\u05dc\u05d5\u05dd"))
        self.browser.run("document.querySelector('.words').focus()")
        self.browser.press("end")
        self.wait_for("const w = document.querySelector('.words');"
                      "return w.scrollTop > 0 && document.activeElement === w", True)
        self.assertEqual(self.shown(), [1])
        self.browser.press("right")
        self.assertEqual(self.browser.run("return getComputedStyle(document.querySelector('.words')).direction"),
                         "rtl")

    def test_is_dark_when_the_system_is(self):
        self.open("1h")
        colors = []
        for scheme in ("light", "dark"):
            self.browser.command("Emulation.setEmulatedMedia",
                                 features=[{"name": "prefers-color-scheme", "value": scheme}])
            colors.append(self.browser.run("return getComputedStyle(document.body).backgroundColor"))
        self.assertEqual(colors, ["rgb(238, 240, 244)", "rgb(18, 20, 26)"])

    def test_screen_readers_are_told_of_slides_and_parts(self):
        self.open("1h", "1h")
        tree = self.browser.command("Accessibility.getFullAXTree")["nodes"]
        told = {(node["role"]["value"], node.get("name", {}).get("value", "")) for node in tree if "role" in node}
        for expected in (("main", "Slides"), ("group", "2 slides"), ("button", "Pause"), ("link", "Save red.png")):
            self.assertIn(expected, told)
        self.browser.press("right")
        self.assertEqual(self.browser.run("return document.querySelector('[role=status]').textContent"),
                         "Slide 2 of 2 \u00b7 1 h")

    def test_every_part_is_saved_as_it_came(self):
        texts = {"crlf.txt": b"one\r\ntwo &amp; <b>", "zero.txt": b"a\0b\x01", "he.txt": "\u05e9\r".encode(),
                 "first.txt": b"\nsecond line"}
        self.open(*(("1h", self.write(name, octets)) for name, octets in texts.items()),
                  ("1h", self.write("red.png", png(4, 3, (255, 0, 0)))))
        saved = self.browser.run(
            "return Promise.all([...document.querySelectorAll('.save')].map(a => new Promise(done => {"
            "const c = document.getElementById(a.dataset.content), r = new FileReader();"
            "r.onload = () => done([a.download, r.result.split(',')[1]]); r.readAsDataURL(blobOf(c)); })))")
        saved = {name: base64.b64decode(data) for name, data in saved}
        for name, octets in {**texts, "red.png": png(4, 3, (255, 0, 0))}.items():
            self.assertEqual(saved[name], octets, name)
        os.mkdir(self.path("downloads"))
        self.browser.command("Browser.setDownloadBehavior", behavior="allow", downloadPath=self.path("downloads"))
        self.browser.click("a[download='red.png']")
        end = time.monotonic() + 10
        while not os.path.exists(self.path("downloads/red.png")) and time.monotonic() < end:
            time.sleep(0.05)
        with open(self.path("downloads/red.png"), "rb") as file:
            self.assertEqual(file.read(), png(4, 3, (255, 0, 0)))

    def test_markup_of_a_message_is_text(self):
        self.open("1h")
        self.assertEqual(self.browser.run("return document.title"), MARKUP)
        self.assertEqual(self.browser.run("return document.querySelector('.words').textContent"),
                         "slide 1 " + MARKUP)
        self.assertEqual(self.browser.run("return document.scripts.length"), 1)
        self.assertEqual(self.browser.run("return document.images.length"), 1)

    def test_nothing_else_is_run_or_loaded(self):
        self.open("1h")
        self.browser.run(
            "window.hit = 0; window.kinds = []; document.addEventListener('securitypolicyviolation',"
            " e => kinds.push(e.effectiveDirective));"
            "const s = document.createElement('script'); s.textContent = 'window.hit = 1';"
            "document.body.append(s); document.body.insertAdjacentHTML('beforeend',"
            "'<img src=\"data:image/gif;base64,R0lGODlhAQABAAAAACw=\" onerror=\"window.hit = 2\">"
            "<iframe src=\"data:text/html,x\"></iframe><link rel=stylesheet href=\"file:///x.css\">"
            "<p style=\"color: red\">');"
            "fetch('http://127.0.0.1:9/').catch(() => {});")
        self.wait_for("return [window.hit, ...kinds.sort()]",
                      [0, "connect-src", "frame-src", "img-src", "script-src-attr", "script-src-elem",
                       "style-src-attr", "style-src-elem"])


class Sound(RenderedPage):
    options = ["--autoplay-policy=user-gesture-required", "--mute-audio"]

    def test_starts_by_its_button_when_the_browser_will_not(self):
        self.open(("1h", "text:listen", self.write("tone.wav", sound(2))))
        self.wait_for("return document.getElementById('sound').hidden", False)
        self.assertTrue(self.browser.run("const a = document.querySelector('audio'); return a.controls && a.paused"))
        self.browser.click("#sound")
        self.wait_for("return document.querySelector('audio').currentTime > 0", True)
        self.assertEqual(self.browser.run("return [document.getElementById('sound').hidden, playing]"), [True, True])
        self.browser.click("#play")
        self.wait_for("return document.querySelector('audio').paused", True)

    def test_one_that_the_browser_cannot_play_is_named(self):
        self.open(("1h", self.write("call.amr", b"#!AMR\n" + b"\x3c" + bytes(31))))
        self.wait_for("return document.querySelector('.why')?.textContent",
                      " \u2013 this browser cannot play it (audio/amr)")
        self.assertEqual(self.browser.run("return document.querySelectorAll('audio').length"), 0)


if __name__ == "__main__":
    unittest.main()
