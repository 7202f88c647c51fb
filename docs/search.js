// The search of the manual: every word that is typed begins a word of a found place, and places whose heading has
// them come first, those of the pages before those of the reference. The places are those of searchindex.js: [heading, page, address, words of the heading, other words].

"use strict";

(function () {
    const shown = 30;
    const reference = /^(class|struct|namespace)|_8h\.html/;
    const form = document.getElementById("search");
    const field = document.getElementById("search-words");
    const list = document.getElementById("search-results");

    // How well a place's word lists, each with blanks around its words, answer the typed words; 0 when they don't.
    function rank(place, typed) {
        let sum = 0;
        for (const word of typed) {
            const worth = place[3].includes(` ${word} `) ? 9
                : place[3].includes(` ${word}`) ? 6
                : place[4].includes(` ${word} `) ? 2
                : place[4].includes(` ${word}`) ? 1 : 0;
            if (worth === 0) {
                return 0;
            }
            sum += worth;
        }
        return sum >= 6 && !reference.test(place[2]) ? sum + 4 : sum; // 6 and more: a heading has a word
    }

    function find(text) {
        const typed = text.toLowerCase().split(/[^\p{L}\p{N}]+/u).filter((word) => word !== "");
        if (typed.length === 0) {
            return null;
        }
        return searchIndex
            .map((place, order) => ({place, order, rank: rank(place, typed)}))
            .filter((found) => found.rank > 0)
            .sort((a, b) => b.rank - a.rank || a.order - b.order)
            .slice(0, shown)
            .map((found) => found.place);
    }

    function entry([heading, page, address]) {
        const item = document.createElement("li");
        const link = document.createElement("a");
        link.href = address;
        link.append(heading);
        item.append(link);
        if (page !== heading) {
            const where = document.createElement("span");
            where.append(page);
            item.append(where);
        }
        return item;
    }

    function show() {
        const found = find(field.value);
        const entries = (found || []).map(entry);
        if (found && entries.length === 0) {
            const nothing = document.createElement("li");
            nothing.append("Nothing found");
            entries.push(nothing);
        }
        list.replaceChildren(...entries);
    }

    // Up and down walk through the field and the links below it.
    function walk(event) {
        const stops = [field, ...list.querySelectorAll("a")];
        const next = stops.indexOf(document.activeElement) + (event.key === "ArrowDown" ? 1 : -1);
        if (next >= 0 && next < stops.length) {
            stops[next].focus();
        }
        event.preventDefault();
    }

    form.hidden = false;
    field.addEventListener("input", show);
    form.addEventListener("submit", (event) => {
        event.preventDefault();
        const first = list.querySelector("a");
        if (first) {
            location.href = first.href;
        }
    });
    form.addEventListener("keydown", (event) => {
        if (event.key === "ArrowDown" || event.key === "ArrowUp") {
            walk(event);
        } else if (event.key === "Escape") {
            list.replaceChildren();
            field.focus();
        }
    });
    list.addEventListener("click", () => list.replaceChildren());
    document.addEventListener("click", (event) => form.contains(event.target) || list.replaceChildren());
    document.addEventListener("keydown", (event) => {
        if (event.key === "/" && !/^(INPUT|TEXTAREA)$/.test(document.activeElement.tagName)) {
            event.preventDefault();
            field.focus();
        }
    });

    const asked = new URLSearchParams(location.search).get("search"); // a link may search: index.html?search=row
    if (asked) {
        field.value = asked;
        show();
    }
})();
