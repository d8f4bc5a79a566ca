// The way to the phone's screen: connects, and connects again as long as that makes sense.

import RFB from "./novnc/core/rfb.js";

// Why the phone closes the connection.
const ENDED = 4000;
const SWITCHED_OFF = 4001;

const pauses = [300, 1000, 2000, 4000]; // before each new try

export class Connection {
    /** Draws the screen into `place`; `tell(state, size)` hears of "connecting", "starting", "shown", "switching",
     *  "lost", "gone" and "ended", and of the screen's size when it is known. */
    constructor(place, tell) {
        this.place = place;
        this.tell = tell;
        this.tries = 0;
        this.connect();
    }

    connect() {
        clearTimeout(this.next);
        const address = new URL("screen", location.href);
        address.protocol = "ws:";
        const socket = new WebSocket(address);
        socket.addEventListener("close", (event) => this.closed(event.code));
        this.rfb = new RFB(this.place, socket, { shared: true });
        this.rfb.scaleViewport = true;
        this.rfb.qualityLevel = 9;
        this.rfb.background = "#000";
        this.rfb.addEventListener("connect", () => {
            this.tries = 0;
            this.awaitProgram();
            this.focus();
        });
    }

    /** The screen is dark until the program shows itself. */
    awaitProgram() {
        const canvas = this.place.querySelector("canvas");
        const points = canvas.getContext("2d").getImageData(0, 0, canvas.width, canvas.height).data;
        const isLit = points.some((value, at) => value > 0 && at % 4 !== 3);
        this.tell(isLit ? "shown" : "starting", { width: canvas.width, height: canvas.height });
        if (!isLit)
            this.next = setTimeout(() => this.awaitProgram(), 150);
    }

    connectAgain() {
        this.tries = 0;
        this.tell("connecting");
        this.connect();
    }

    closed(code) {
        clearTimeout(this.next);
        if (code === ENDED) {
            this.tell("ended");
        } else if (this.tries === pauses.length) {
            this.tell("gone");
        } else {
            this.tell(code === SWITCHED_OFF ? "switching" : "lost");
            this.next = setTimeout(() => this.connect(), pauses[this.tries++]);
        }
    }

    send(symbol, isDown) {
        this.rfb.sendKey(symbol, null, isDown);
    }

    focus() {
        this.rfb.focus();
    }
}
