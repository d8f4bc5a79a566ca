// How large the phone is drawn.

const margin = { sides: 12, ends: 24 };

/** Draws the phone as large as the window lets it, its screen of `size` in steps that keep the text sharp. */
export function fitPhone(screen, size) {
    const phone = screen.closest(".phone");
    const style = document.documentElement.style;
    const set = (scale) => {
        style.setProperty("--scale", scale);
        screen.classList.toggle("sharp", Number.isInteger(scale * devicePixelRatio));
    };
    style.setProperty("--screen-width", size.width);
    style.setProperty("--screen-height", size.height);

    set(1);
    const { clientWidth, clientHeight } = document.documentElement;
    const wide = (clientWidth - margin.sides) / phone.offsetWidth;
    const high = (clientHeight - margin.ends) / phone.offsetHeight;
    const steps = 4;
    set(Math.min(wide, Math.max(1, Math.floor(Math.min(wide, high) * steps) / steps)));
}
