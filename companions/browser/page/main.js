// The page around the phone.

import { Connection } from "./connection.js";
import { listenToKeys, showTyping } from "./keys.js";
import { fitPhone } from "./fit.js";

const screen = document.getElementById("screen");
const notice = document.getElementById("notice");
const noticeText = document.getElementById("notice-text");
const again = document.getElementById("again");
const sizes = document.querySelectorAll("#sizes input");
const keys = document.querySelectorAll("[data-key]");

const notices = {
    connecting: "Connecting …",
    starting: "Starting …",
    switching: "Starting on the other screen …",
    lost: "The connection was lost. Trying again …",
    gone: "The phone does not answer. Does ./run still run? Every start has a new address.",
    ended: "The program has ended. Start it again with ./run",
};

let size = { width: 240, height: 320 };

function show(state, newSize) {
    document.body.dataset.state = state;
    noticeText.textContent = notices[state] ?? "";
    notice.hidden = state === "shown";
    again.hidden = state !== "gone";
    if (!newSize)
        return;
    size = newSize;
    fitPhone(screen, size);
    for (const choice of sizes)
        choice.checked = choice.value === `${size.width}x${size.height}`;
}

/** Asks for what is not a key of the phone's. */
async function wish(what) {
    try {
        await fetch(`wish/${what}`, { method: "POST" });
    } catch {
        // The connection's own end tells.
    }
}

fitPhone(screen, size);
window.addEventListener("resize", () => fitPhone(screen, size));

const connection = new Connection(screen, show);
again.addEventListener("click", () => connection.connectAgain());

listenToKeys(keys, (symbol, isDown) => connection.send(symbol, isDown));
showTyping(keys);
for (const key of document.querySelectorAll("[data-wish]"))
    key.addEventListener("click", () => wish(key.dataset.wish));
for (const choice of sizes)
    choice.addEventListener("change", () => {
        show("switching");
        wish(choice.value);
    });

// Whatever is clicked, the keyboard stays the phone's.
document.addEventListener("mousedown", (event) => {
    if (event.target.closest(".phone"))
        event.preventDefault();
});
document.addEventListener("click", () => connection.focus());
document.querySelector(".phone").addEventListener("contextmenu", (event) => event.preventDefault());
