// The phone's keys: which key of a keyboard each stands for, and how pressing one feels.

const symbolOf = {
    F1: 0xffbe,
    F10: 0xffc7,
    Escape: 0xff1b,
    Enter: 0xff0d,
    ArrowLeft: 0xff51,
    ArrowUp: 0xff52,
    ArrowRight: 0xff53,
    ArrowDown: 0xff54,
};

// What a keyboard calls otherwise.
const sameKey = { ContextMenu: "F10" };

const firstRepeat = 450;
const nextRepeat = 90;

/** What the screen calls the key. */
function symbol(name) {
    return symbolOf[name] ?? name.charCodeAt(0);
}

/** Lets the page's keys call `send(symbol, isDown)`; arrows held go on moving. */
export function listenToKeys(keys, send) {
    for (const key of keys) {
        const name = key.dataset.key;
        let repeat = 0;

        const press = () => {
            if (repeat)
                return;
            key.classList.add("pressed");
            send(symbol(name), true);
            const again = () => {
                if (name.startsWith("Arrow"))
                    send(symbol(name), true);
                repeat = setTimeout(again, nextRepeat);
            };
            repeat = setTimeout(again, firstRepeat);
        };
        const release = () => {
            if (!repeat)
                return;
            clearTimeout(repeat);
            repeat = 0;
            key.classList.remove("pressed");
            send(symbol(name), false);
        };

        key.addEventListener("pointerdown", (event) => {
            if (event.button !== 0)
                return;
            key.setPointerCapture(event.pointerId);
            press();
        });
        for (const end of ["pointerup", "pointercancel", "lostpointercapture"])
            key.addEventListener(end, release);
        // An assistive tool clicks without a pointer.
        key.addEventListener("click", (event) => {
            if (event.detail === 0 && event.pointerType === "") {
                press();
                release();
            }
        });
    }
}

/** Shows the phone's keys pressed while those of the keyboard are. */
export function showTyping(keys) {
    const keyOf = (event) =>
        [...keys].find((key) => key.dataset.key === (sameKey[event.key] ?? event.key));
    window.addEventListener("keydown", (event) => keyOf(event)?.classList.add("pressed"), true);
    window.addEventListener("keyup", (event) => keyOf(event)?.classList.remove("pressed"), true);
    window.addEventListener("blur", () => keys.forEach((key) => key.classList.remove("pressed")));
}
