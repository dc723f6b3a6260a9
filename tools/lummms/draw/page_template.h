#pragma once

// The constant pieces of the page that plays a message's slides. Nothing of a message stands in them,
// so that the page can name their hashes and allow no other style and no other script.

/// Two regions of 120 by 160, drawn twice as large.
inline constexpr char PAGE_STYLE[] = R"css(
body { margin: 1em; font: 16px sans-serif; background: #fafafa; color: #222; }
h1 { font-size: 1.2em; overflow-wrap: anywhere; }
nav { margin-bottom: 1em; }
.slide { width: 246px; }
.slide[hidden] { display: none; }
.screen { width: 120px; height: 320px; margin: 0 120px 324px 1px; outline: 1px solid #888;
          background: white; color: black; transform: scale(2); transform-origin: 0 0; }
.region { position: relative; width: 120px; height: 160px; overflow: hidden; font-size: 12px; }
.words { position: absolute; z-index: 1; margin: 2px; width: 116px; white-space: pre-wrap;
         overflow-wrap: anywhere; }
.gap { box-sizing: border-box; width: 112px; height: 152px; margin: 4px; padding: 50px 2px 0;
       border: 1px dashed gray; background: #eee; color: #555; text-align: center;
       overflow-wrap: anywhere; overflow: hidden; }
img { display: block; max-width: none; }
img.fill, img.meet, img.slice { width: 120px; height: 160px; object-position: 0 0; }
img.meet { object-fit: contain; }
img.slice { object-fit: cover; }
video { position: absolute; left: 0; bottom: 0; width: 120px; max-height: 100px; }
.legend { margin: 0; text-align: center; }
ul { margin: 0; padding: 0; list-style: none; overflow-wrap: anywhere; }
.sound::before { content: "\266A  "; }
.other::before { content: "+ "; }
)css";

inline constexpr char PAGE_CONTROLS[] = R"html(<nav>
<button id="back" type="button">Back</button>
<button id="play" type="button">Pause</button>
<button id="next" type="button">Next</button>
<span id="place" aria-live="polite"></span>
</nav>
)html";

/// Plays the slides: each for its duration, 5 seconds when none was given; one without an end waits.
inline constexpr char PAGE_SCRIPT[] = R"js(
"use strict";
const slides = Array.from(document.querySelectorAll(".slide"));
const playButton = document.getElementById("play");
const UNTIL_USER = -2, USUAL = 5000;
let current = 0;
let playing = true;
let timer = 0;

function fetchContents(slide) {
    for (const element of slide.querySelectorAll("[data-content]")) {
        const content = document.getElementById("content" + element.dataset.content);
        if (content && !element.src)
            element.src = content.getAttribute("value");
    }
}

function sounds(slide) {
    return Array.from(slide.querySelectorAll("audio, video"));
}

function schedule() {
    clearTimeout(timer);
    const given = Number(slides[current].dataset.duration);
    if (!playing || given === UNTIL_USER)
        return;
    timer = setTimeout(() => {
        if (current + 1 < slides.length)
            show(current + 1);
        else
            setPlaying(false);
    }, given < 0 ? USUAL : given);
}

function soundCurrent() {
    for (const sound of sounds(slides[current])) {
        if (playing)
            sound.play().catch(() => {}); // a format that the browser cannot play stays silent
        else
            sound.pause();
    }
}

function show(index) {
    for (const sound of sounds(slides[current])) {
        sound.pause();
        if (sound.src)
            sound.currentTime = 0;
    }
    current = Math.max(0, Math.min(index, slides.length - 1));
    slides.forEach((slide, i) => { slide.hidden = i !== current; });
    fetchContents(slides[current]);
    document.getElementById("place").textContent = (current + 1) + " / " + slides.length;
    soundCurrent();
    schedule();
}

function setPlaying(on) {
    playing = on;
    playButton.textContent = on ? "Pause" : "Play";
    soundCurrent();
    schedule();
}

function togglePlaying() {
    const atEnd = current + 1 === slides.length;
    setPlaying(!playing);
    if (playing && atEnd && slides.length > 1)
        show(0);
}

const actions = {
    ArrowLeft: () => show(current - 1),
    ArrowRight: () => show(current + 1),
    Home: () => show(0),
    End: () => show(slides.length - 1),
    " ": togglePlaying,
};
document.addEventListener("keydown", event => {
    const action = event.altKey || event.ctrlKey || event.metaKey ? null : actions[event.key];
    if (action) {
        event.preventDefault();
        action();
    }
});
const buttons = {back: "ArrowLeft", play: " ", next: "ArrowRight"};
for (const [id, key] of Object.entries(buttons)) {
    document.getElementById(id).addEventListener("click", event => {
        event.currentTarget.blur(); // so that the space bar means play again
        actions[key]();
    });
}
for (const slide of slides) {
    const screen = slide.querySelector(".screen");
    screen.style.background = slide.dataset.page;
    screen.style.color = slide.dataset.text;
}
show(0);
)js";
