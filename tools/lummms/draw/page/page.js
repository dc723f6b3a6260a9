
"use strict";

// Plays the slides: each for its duration, 5 seconds when it has none; a slide without end waits for the user.

const UNTIL_USER = -2, USUAL = 5000;
const byId = id => document.getElementById(id);
const slides = Array.from(document.querySelectorAll(".slide"));
const bar = byId("bar");
let current = 0;
let playing = true;
let clock = null; // the bar's animation, which lasts as long as the slide

// Contents: each is in the page once; slides and links share its URL.

const urls = new Map();

function blobOf(content) {
    const coded = content.getAttribute("value");
    const octets = coded === null ? content.textContent
        : Uint8Array.from(atob(coded), character => character.charCodeAt(0));
    return new Blob([octets], {type: content.dataset.type});
}

function urlOf(content) {
    if (!urls.has(content))
        urls.set(content, URL.createObjectURL(blobOf(content)));
    return urls.get(content);
}

function element(name, className, text) {
    const made = document.createElement(name);
    made.className = className;
    made.dir = "auto";
    if (text !== undefined)
        made.textContent = text;
    return made;
}

function gap(content, why) {
    const frame = element("div", "gap");
    frame.append(element("b", "", content.dataset.name), element("span", "", why));
    return frame;
}

// How the elements of each kind of object are filled.
const fillings = {
    text(object, content) {
        const words = element("p", "words", content.textContent.replace(/\r\n?/g, "\n"));
        object.append(words);
        if (words.scrollHeight > words.clientHeight) { // can be scrolled by keys
            words.tabIndex = 0;
            words.setAttribute("role", "group");
            words.setAttribute("aria-label", content.dataset.name);
        }
    },
    picture(object, content) {
        const picture = document.createElement("img");
        picture.alt = object.dataset.alt || content.dataset.name;
        picture.dir = "auto";
        picture.style.setProperty("--wide", content.dataset.width);
        picture.style.setProperty("--high", content.dataset.height);
        picture.onerror = () => object.replaceChildren(gap(content, "cannot be shown"));
        picture.src = urlOf(byId(content.dataset.shown || content.id));
        object.append(picture);
    },
    video(object, content) {
        object.append(player("video", content, why => object.replaceChildren(gap(content, why))));
    },
    sound(object, content) {
        object.append(player("audio", content, why => {
            object.querySelector("audio").remove();
            object.append(element("span", "why", " – " + why));
        }));
    },
};

function player(kind, content, refuse) {
    const media = document.createElement(kind);
    media.controls = true;
    media.setAttribute("playsinline", "");
    media.setAttribute("aria-label", content.dataset.name);
    media.onerror = () => refuse("this browser cannot play it (" + content.dataset.mediaType + ")");
    media.src = urlOf(content);
    return media;
}

function fill(slide) {
    for (const object of slide.querySelectorAll("[data-content]")) {
        const content = byId(object.dataset.content);
        const shows = object.dataset.kind;
        object.replaceChildren();
        if (shows === "sound" || shows === "other")
            object.append(element("span", "", (shows === "sound" ? "♪ " : "+ ") + content.dataset.name));
        if (content.dataset.gap)
            object.append(shows === "sound" || shows === "other" ? element("span", "why", " – " + content.dataset.gap)
                                                                  : gap(content, content.dataset.gap));
        else if (fillings[shows])
            fillings[shows](object, content);
    }
}

function clear(slide) {
    for (const media of mediaOf(slide))
        media.pause();
    for (const object of slide.querySelectorAll("[data-content]"))
        object.replaceChildren();
}

// Playing.

function mediaOf(slide) {
    return Array.from(slide.querySelectorAll("audio, video"));
}

function playMedia() {
    byId("sound").hidden = true;
    for (const media of mediaOf(slides[current]))
        media.play().catch(error => {
            if (error.name === "NotAllowedError") // no sound before a user action
                byId("sound").hidden = false;
        });
}

function pauseMedia() {
    for (const media of mediaOf(slides[current]))
        media.pause();
}

function show(index) {
    clear(slides[current]);
    current = index;
    slides.forEach((slide, i) => { slide.hidden = i !== current; });
    const slide = slides[current];
    fill(slide);
    byId("place").textContent = slide.getAttribute("aria-label") + " · " + slide.dataset.label;
    byId("back").setAttribute("aria-disabled", current === 0);
    byId("next").setAttribute("aria-disabled", current + 1 === slides.length);
    if (clock)
        clock.cancel();
    clock = null;
    const given = Number(slide.dataset.duration);
    if (given !== UNTIL_USER) {
        clock = bar.animate({transform: ["scaleX(0)", "scaleX(1)"]},
                            {duration: given < 0 ? USUAL : given, fill: "forwards"});
        clock.onfinish = goOn;
        if (!playing)
            clock.pause();
    }
    byId("sound").hidden = true;
    if (playing)
        playMedia();
}

function step(by) {
    if (slides[current + by])
        show(current + by);
}

function goOn() {
    if (current + 1 < slides.length)
        show(current + 1);
    else
        setPlaying(false);
}

function setPlaying(on) {
    playing = on;
    byId("play").dataset.playing = on ? "yes" : "no";
    byId("play").querySelector("span").textContent = on ? "Pause" : "Play";
    if (on)
        playMedia();
    else
        pauseMedia();
    if (clock && clock.playState !== "finished")
        clock[on ? "play" : "pause"]();
}

function togglePlaying() {
    const isOver = clock && clock.playState === "finished";
    setPlaying(!playing);
    if (playing && isOver)
        show(current + 1 < slides.length ? current : 0);
}

const actions = {
    ArrowLeft: () => step(-1),
    ArrowRight: () => step(1),
    Home: () => show(0),
    End: () => show(slides.length - 1),
    " ": togglePlaying,
};

// Whether the focused element handles the key itself.
function isUsed(target, key) {
    if (target.closest("audio, video"))
        return true;
    if (target.closest("button, a"))
        return key === " ";
    return Boolean(target.closest(".words, .scroll")) && (key === "Home" || key === "End" || key === " ");
}

document.addEventListener("keydown", event => {
    const hasModifier = event.altKey || event.ctrlKey || event.metaKey || event.shiftKey;
    const action = hasModifier ? undefined : actions[event.key];
    if (!action || isUsed(event.target, event.key))
        return;
    event.preventDefault();
    if (event.key !== " " || !event.repeat)
        action();
});

byId("back").onclick = actions.ArrowLeft;
byId("play").onclick = actions[" "];
byId("next").onclick = actions.ArrowRight;
byId("sound").onclick = playMedia;

for (const slide of slides) {
    const screen = slide.querySelector(".screen");
    screen.style.background = slide.dataset.page;
    screen.style.color = slide.dataset.text;
}
for (const link of document.querySelectorAll(".save"))
    link.href = urlOf(byId(link.dataset.content));
show(0);
