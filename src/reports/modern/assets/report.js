// The modern report: fills the tables of files and of violations and keeps them sorted, filtered and
// paged. Text from the results only ever becomes the text of a node, never markup.
"use strict";

(() => {
    // ---- what the page holds ----

    const pageSize = 50;
    const printedRows = 2000;  // some hundred sheets; the page then says so

    const element = (id) => document.getElementById(id);
    const data = JSON.parse(element("review-data").textContent);
    const groups = new Intl.NumberFormat("en-GB");
    const collator = new Intl.Collator("en", { numeric: true, sensitivity: "base" });
    const ruleTypes = [
        "", "Authorised components", "Authorised references", "Unauthorised keywords",
        "Coding conventions", "Naming conventions", "Documentation conventions"];
    const verdicts = ["No verdict", "Passed", "Failed", "Not reviewed"];
    const verdictClasses = ["none", "state-passed", "state-failed", "state-error"];

    const files = data.files.map((row) => {
        const [@files.fields@] = row;
        return { @files.fields@ };
    });
    const procedures = data.procedures.map(([@procedures.fields@]) => ({ @procedures.fields@ }));
    const rules = data.rules.map((row) => {
        const [@rules.fields@] = row;
        return { @rules.fields@ };
    });
    const violations = data.violations.map((row) => {
        const [@violations.fields@] = row;
        const rule = rules[ruleIndex];
        return {
            id, rule, file, procedure, line,
            source: source < 0 ? "" : data.lines[source],
            description: rule.descriptionHead + description + rule.descriptionTail,
            advice: rule.adviceHead + advice + rule.adviceTail,
            completed: completed === 1,
        };
    });

    const severityTitle = (level) => data.severities[level - 1] || "Severity " + level;
    const fileName = (place) => (place < 0 ? "" : files[place].name);
    const procedureName = (place) => (place < 0 ? "" : procedures[place].name);
    const counted = (count, one, many) => groups.format(count) + " " + (count === 1 ? one : many);

    // ---- building nodes ----

    const svgSpace = "http://www.w3.org/2000/svg";

    function make(tag, attributes = {}, ...content) {
        const node = document.createElement(tag);
        for (const [name, value] of Object.entries(attributes)) {
            node.setAttribute(name, value);
        }
        node.append(...content);
        return node;
    }

    function makeSvg(tag, attributes, ...content) {
        const node = document.createElementNS(svgSpace, tag);
        for (const [name, value] of Object.entries(attributes)) {
            node.setAttribute(name, value);
        }
        node.append(...content);
        return node;
    }

    const cell = (attributes, ...content) => make("td", { role: "cell", ...attributes }, ...content);

    function shape(level) {
        return makeSvg("svg", { class: "shape level-" + level, "aria-hidden": "true", focusable: "false" },
            makeSvg("use", { href: "#shape-" + level }));
    }

    function stackedBar(counts, whole) {
        const bar = makeSvg("svg", { class: "bar", width: "100%", height: "12", "aria-hidden": "true" });
        let before = 0;
        counts.forEach((count, place) => {
            const box = {
                x: (before / whole) * 100 + "%", width: (count / whole) * 100 + "%", height: "12" };
            if (count > 0) {
                bar.append(makeSvg("rect", { ...box, class: "level-" + (place + 1) }));
                if (place > 0) {
                    bar.append(makeSvg("rect", { ...box, fill: "url(#hatch-" + (place + 1) + ")" }));
                }
            }
            before += count;
        });
        return bar;
    }

    // ---- a line of source in colours ----

    const keywords = new Set((
        "addressof alias and any as boolean byref byte byval call case cbool cbyte ccur cdate cdbl cint " +
        "clng close const csng cstr currency cvar date debug declare defint deflng dim do double each " +
        "else elseif empty end enum erase error event exit explicit false for friend function get global " +
        "gosub goto if imp implements in input integer is let lib like long loop lset me mod new next " +
        "not nothing null object on open option optional or paramarray preserve print private property " +
        "public put raiseevent redim resume return rset select set single static step stop string sub " +
        "then to true type typeof until variant wend while with withevents write xor").split(" "));
    // A text, a comment, a word, or anything else, one at a time.
    const tokens = /"(?:[^"]|"")*"?|'.*|\brem\b.*|[\p{L}_][\p{L}\p{N}_]*|[^"'\p{L}_]+/iuy;

    function tokenClass(token, before) {
        if (token.startsWith('"')) {
            return "s";
        }
        if (token.startsWith("'") || (/^rem(\s|$)/i.test(token) && /(^|:)\s*$/.test(before))) {
            return "c";
        }
        return keywords.has(token.toLowerCase()) ? "k" : "";
    }

    function colouredSource(line) {
        const code = make("code");
        let place = 0;
        while (place < line.length) {
            tokens.lastIndex = place;
            const found = tokens.exec(line);
            let token = found ? found[0] : line[place];
            const name = tokenClass(token, line.slice(0, place));
            if (name !== "c" && /^rem\b/i.test(token)) {
                token = token.slice(0, 3);  // a word of that name inside a line is no comment
            }
            code.append(name ? make("span", { class: name }, token) : token);
            place += token.length;
        }
        return code;
    }

    // ---- a table: sorts, filters and pages its rows ----

    class Listing {
        // `keys` gives for each heading what its rows are compared by; `draw` gives the nodes of a row.
        constructor(name, rows, keys, words, draw) {
            this.name = name;
            this.rows = rows;
            this.keys = keys;
            this.words = words;
            this.draw = draw;
            this.passes = () => true;
            this.page = 0;
            this.printing = false;
            this.table = element(name + "-table");
            this.body = this.table.tBodies[0];
            this.status = element(name + "-status");
            this.headings = [...this.table.querySelectorAll("th[data-key]")];
            this.pagers = [...document.querySelectorAll('.pager[data-table="' + name + '"]')];
            for (const heading of this.headings) {
                heading.querySelector("button").addEventListener("click", () => this.sortByHeading(heading));
            }
            for (const pager of this.pagers) {
                pager.addEventListener("click", (event) => this.turnPage(event.target, pager));
            }
        }

        sortByHeading(heading) {
            const before = heading.getAttribute("aria-sort");
            // Figures are mostly looked at from the greatest down, names from A to Z.
            const first = heading.classList.contains("number") ? "descending" : "ascending";
            const other = first === "ascending" ? "descending" : "ascending";
            this.sort(heading.dataset.key, before === first ? other : first);
        }

        sort(key, direction) {
            this.headings.forEach((heading) => heading.setAttribute(
                "aria-sort", heading.dataset.key === key ? direction : "none"));
            const sign = direction === "ascending" ? 1 : -1;
            const compare = this.keys[key];
            this.rows.sort((left, right) => sign * compare(left, right) || left.order - right.order);
            this.page = 0;
            this.show();
        }

        filter(passes) {
            this.passes = passes;
            this.page = 0;
            this.show();
        }

        pageCount() {
            return Math.max(1, Math.ceil(this.shown.length / pageSize));
        }

        turnPage(target, pager) {
            const button = target.closest("button[data-step]");
            if (!button || button.getAttribute("aria-disabled") === "true") {
                return;
            }
            this.page += Number(button.dataset.step);
            this.redraw();
            if (pager !== this.pagers[0]) {
                // From the foot of the table on to the head of the next page.
                this.pagers[0].querySelector('[data-step="' + button.dataset.step + '"]').focus();
                this.table.parentElement.querySelector(".table-bar").scrollIntoView({ block: "center" });
            }
        }

        // Turns to the page of a row; false where the filter leaves it out.
        reveal(row) {
            const place = this.shown.indexOf(row);
            if (place < 0) {
                return false;
            }
            this.page = Math.floor(place / pageSize);
            this.redraw();
            return true;
        }

        show() {
            this.shown = this.rows.filter(this.passes);
            this.redraw();
        }

        redraw() {
            const rows = this.printing
                ? this.shown.slice(0, printedRows)
                : this.shown.slice(this.page * pageSize, (this.page + 1) * pageSize);
            this.body.replaceChildren(...rows.flatMap((row) => this.draw(row, this.printing)));
            this.status.textContent = this.describe();
            const last = this.pageCount() - 1;
            for (const pager of this.pagers) {
                pager.hidden = last === 0;
                pager.querySelector(".page-number").textContent =
                    "Page " + groups.format(this.page + 1) + " of " + groups.format(last + 1);
                pager.querySelector('[data-step="-1"]').setAttribute("aria-disabled", this.page === 0);
                pager.querySelector('[data-step="1"]').setAttribute("aria-disabled", this.page === last);
            }
        }

        describe() {
            const total = counted(this.rows.length, ...this.words);
            let text = this.shown.length === this.rows.length
                ? total : groups.format(this.shown.length) + " of " + total;
            if (this.printing && this.shown.length > printedRows) {
                text += ", of which the first " + groups.format(printedRows) + " are printed";
            }
            return text;
        }

        print(on) {
            this.printing = on;
            this.redraw();
        }
    }

    // ---- the files ----

    files.forEach((file, order) => { file.order = order; });
    const byNumber = (name) => (left, right) => left[name] - right[name];
    const figure = (value) => (value < 0 ? "–" : groups.format(value));

    const mostInOneFile = Math.max(1, ...files.map((file) => file.violations));

    function drawFile(file) {
        const place = file.order;
        const name = file.violations > 0
            ? make("button", { type: "button", class: "link", "data-file": place }, file.name)
            : file.name;
        const verdict = cell({ class: verdictClasses[file.verdict] }, verdicts[file.verdict]);
        if (file.reason) {
            verdict.append(make("span", { class: "reason" }, file.reason));
        }
        const count = cell({ class: "number", "data-label": "Violations" }, figure(file.violations));
        if (file.violations > 0) {
            count.append(stackedBar(file.counts, mostInOneFile));
        }
        const number = (label, text) => cell({ class: "number", "data-label": label }, text);
        return [make("tr", { role: "row" },
            cell({ class: "name" }, name), verdict, count,
@files.cells@)];
    }

    const fileListing = new Listing("files", [...files], {
@files.orders@
    }, ["file", "files"], drawFile);

    function filterFiles() {
        const text = element("files-text").value.trim().toLowerCase();
        const show = element("files-show").value;
        fileListing.filter((file) =>
            (file.path + file.name).toLowerCase().includes(text) &&
            (show !== "failed" || file.verdict > 1) &&
            (show !== "found" || file.violations > 0));
    }

    // ---- the violations ----

    const opened = new Set();

    const printedAdvice = new Set();

    // On paper an advice stands with the first violation that has it, since most of a rule have the same.
    function isRepeatedAdvice(violation) {
        const repeated = printedAdvice.has(violation.advice);
        printedAdvice.add(violation.advice);
        return repeated;
    }

    function drawDetails(violation, id, printing) {
        const content = cell({ colspan: "5" });
        if (violation.source) {
            content.append(make("div", { class: "source level-" + violation.rule.severity },
                make("span", { class: "gutter" }, violation.line > 0 ? String(violation.line) : ""),
                colouredSource(violation.source)));
        }
        const list = make("dl");
        const item = (term, text) => text && list.append(make("dt", {}, term), make("dd", {}, text));
        item("Description", violation.description);
        if (!printing || !isRepeatedAdvice(violation)) {
            item("Advice", violation.advice);
        }
        item("Kind of rule", ruleTypes[violation.rule.type]);
        content.append(list);
        if (!printing) {
            content.append(make("a", { class: "note", href: "#v" + violation.id }, "Link to this violation"));
        }
        return make("tr", { role: "row", class: "details", id }, content);
    }

    function placeCell(violation) {
        if (violation.file < 0) {
            return cell({ class: "place" }, "Project");
        }
        const line = violation.line > 0 ? ", line " + violation.line : "";
        const content = cell({ class: "place" }, fileName(violation.file) + line);
        if (violation.procedure >= 0) {
            content.append(make("span", { class: "note" }, procedureName(violation.procedure)));
        }
        return content;
    }

    function drawViolation(violation, printing) {
        const rule = violation.rule;
        const isOpen = printing || opened.has(violation);
        const detailsId = "d" + violation.id;
        const opener = make("button", {
            type: "button", class: "opener", "aria-expanded": isOpen, "data-violation": violation.order },
        rule.title);
        if (isOpen) {
            opener.setAttribute("aria-controls", detailsId);
        }
        const title = cell({ class: "wide-cell" }, opener);
        if (rule.number > 0) {
            title.append(" ", make("span", { class: "rule-number" }, String(rule.number).padStart(4, "0")));
        }
        if (violation.completed) {
            title.append(" ", make("span", { class: "note" }, "completed"));
        }
        if (violation.source) {
            title.append(make("code", { class: "snippet" }, violation.source.trim()));
        }
        const row = make("tr", {
            role: "row", id: "v" + violation.id,
            class: "violation" + (isOpen ? " is-open" : "") + (violation.completed ? " is-completed" : "") },
        cell({ class: "severity-word" }, shape(rule.severity), " " + severityTitle(rule.severity)),
        title,
        placeCell(violation),
        cell({ class: "category" }, data.categories[rule.category]),
        cell({ class: "number impact" }, groups.format(rule.impact)));
        return isOpen ? [row, drawDetails(violation, detailsId, printing)] : [row];
    }

    function byPlace(left, right) {
        return collator.compare(fileName(left.file), fileName(right.file)) || left.line - right.line;
    }

    function bySeverity(left, right) {
        return left.rule.severity - right.rule.severity || right.rule.impact - left.rule.impact;
    }

    // Alike ones follow each other by place in every order.
    [...violations].sort(byPlace).forEach((violation, order) => { violation.order = order; });
    const inOrder = [...violations].sort(byNumber("order"));

    const violationListing = new Listing("violations", [...inOrder], {
        severity: bySeverity,
        title: (left, right) => collator.compare(left.rule.title, right.rule.title),
        place: byPlace,
        category: (left, right) => left.rule.category - right.rule.category,
        impact: (left, right) => left.rule.impact - right.rule.impact,
    }, ["violation", "violations"], drawViolation);

    const severityBoxes = [...document.querySelectorAll(".severities input")];
    const procedureFilter = { place: -1 };  // set by a hotspot, until another file is chosen

    function searched(violation) {
        if (violation.words === undefined) {
            violation.words = [
                violation.rule.number, violation.rule.title, fileName(violation.file),
                procedureName(violation.procedure), violation.source, violation.description,
                violation.advice].join("\n").toLowerCase();
        }
        return violation.words;
    }

    function filterViolations() {
        const levels = new Set(severityBoxes.filter((box) => box.checked).map((box) => Number(box.value)));
        const category = element("violations-category").value;
        const file = element("violations-file").value;
        const text = element("violations-text").value.trim().toLowerCase();
        const openOnly = element("violations-open").checked;
        const [filePlace, procedurePlace] = file.split(":");
        violationListing.filter((violation) =>
            (levels.has(violation.rule.severity) || violation.rule.severity > severityBoxes.length) &&
            (category === "" || violation.rule.category === Number(category)) &&
            (file === "" || violation.file === Number(filePlace)) &&
            (procedurePlace === undefined || violation.procedure === Number(procedurePlace)) &&
            (!openOnly || !violation.completed) &&
            (text === "" || searched(violation).includes(text)));
    }

    function resetFilters() {
        severityBoxes.forEach((box) => { box.checked = true; });
        element("violations-category").value = "";
        element("violations-file").value = "";
        element("violations-text").value = "";
        element("violations-open").checked = false;
        filterViolations();
    }

    function toggle(violation) {
        if (!opened.delete(violation)) {
            opened.add(violation);
        }
        violationListing.redraw();
        openerOf(violation).focus();
    }

    const openerOf = (violation) => element("v" + violation.id).querySelector(".opener");

    function goToViolations() {
        element("violations").scrollIntoView();
        element("violations-file").focus({ preventScroll: true });
    }

    // Shows what is in a file, or in a procedure of it.
    function showFile(file, procedure) {
        resetFilters();
        const select = element("violations-file");
        const value = procedure === undefined ? String(file) : file + ":" + procedure;
        if (![...select.options].some((option) => option.value === value)) {
            select.append(new Option(fileName(file) + ", " + procedureName(procedure), value));
        }
        select.value = value;
        filterViolations();
        goToViolations();
    }

    function showCategory(category) {
        resetFilters();
        element("violations-category").value = String(category);
        filterViolations();
        goToViolations();
    }

    // ---- setting up ----

    function fillSelects() {
        const categories = element("violations-category");
        data.categories.forEach((title, place) => {
            if (rules.some((rule) => rule.category === place)) {
                categories.append(new Option(title, place));
            }
        });
        const select = element("violations-file");
        [...files].sort((left, right) => collator.compare(left.name, right.name)).forEach((file) => {
            if (file.violations > 0) {
                select.append(new Option(file.name, file.order));
            }
        });
        if (violations.some((violation) => violation.file < 0)) {
            select.append(new Option("the project itself", -1));
        }
        element("violations-open").parentElement.hidden =
            !violations.some((violation) => violation.completed);
    }

    // What the page shows as plain words without a script becomes a way to the violations.
    function linkSummaries() {
        document.querySelectorAll("th[data-category]").forEach((heading) => {
            const category = data.categories.indexOf(heading.dataset.category);
            if (rules.some((rule) => rule.category === category)) {
                const button = make("button", { type: "button", class: "link" }, heading.textContent);
                button.addEventListener("click", () => showCategory(category));
                heading.replaceChildren(button);
            }
        });
        document.querySelectorAll("th[data-procedure]").forEach((heading) => {
            const id = Number(heading.dataset.procedure);
            const place = procedures.findIndex((procedure) => procedure.id === id);
            if (place >= 0) {
                const name = heading.querySelector(".name");
                const button = make("button", { type: "button", class: "link" }, name.textContent);
                button.addEventListener("click", () => showFile(procedures[place].file, place));
                name.replaceChildren(button);
            }
        });
    }

    function later(action) {
        let timer = 0;
        return () => {
            clearTimeout(timer);
            timer = setTimeout(action, 120);
        };
    }

    function listen() {
        element("files-text").addEventListener("input", later(filterFiles));
        element("files-show").addEventListener("change", filterFiles);
        element("violations-text").addEventListener("input", later(filterViolations));
        for (const control of [...severityBoxes, element("violations-category"),
            element("violations-file"), element("violations-open")]) {
            control.addEventListener("change", filterViolations);
        }
        element("violations-reset").addEventListener("click", resetFilters);
        element("violations-details").addEventListener("click", (event) => {
            const on = event.currentTarget.getAttribute("aria-pressed") !== "true";
            event.currentTarget.setAttribute("aria-pressed", on);
            violations.forEach((violation) => (on ? opened.add(violation) : opened.delete(violation)));
            violationListing.redraw();
        });
        fileListing.body.addEventListener("click", (event) => {
            const button = event.target.closest("[data-file]");
            if (button) {
                showFile(Number(button.dataset.file));
            }
        });
        violationListing.body.addEventListener("click", (event) => {
            const button = event.target.closest("[data-violation]");
            if (button) {
                toggle(inOrder[Number(button.dataset.violation)]);
            }
        });
    }

    // ---- light and dark ----

    const themes = ["automatic", "light", "dark"];
    const themeButton = element("theme");

    function setTheme(theme) {
        themeButton.textContent = "Theme: " + theme;
        themeButton.dataset.theme = theme;
        if (theme === "automatic") {
            delete document.documentElement.dataset.theme;
        } else {
            document.documentElement.dataset.theme = theme;
        }
    }

    // A page from disk may be denied a memory; then the choice holds until it is closed.
    function remembered() {
        try {
            return localStorage.getItem("dorvik-theme");
        } catch {
            return null;
        }
    }

    function remember(theme) {
        try {
            localStorage.setItem("dorvik-theme", theme);
        } catch {
            // See above.
        }
    }

    themeButton.addEventListener("click", () => {
        const next = themes[(themes.indexOf(themeButton.dataset.theme) + 1) % themes.length];
        setTheme(next);
        remember(next);
    });

    // ---- links to one violation ----

    function followLink() {
        const id = /^#v(\d+)$/.exec(location.hash);
        const violation = id && violations.find((candidate) => candidate.id === Number(id[1]));
        if (!violation) {
            return;
        }
        opened.add(violation);
        if (!violationListing.reveal(violation)) {
            resetFilters();
            violationListing.reveal(violation);
        }
        element("v" + violation.id).scrollIntoView({ block: "center" });
        openerOf(violation).focus({ preventScroll: true });
    }

    // ---- paper has no pages to turn and no details to open ----

    addEventListener("beforeprint", () => {
        printedAdvice.clear();
        fileListing.print(true);
        violationListing.print(true);
    });
    addEventListener("afterprint", () => {
        fileListing.print(false);
        violationListing.print(false);
    });

    setTheme(themes.includes(remembered()) ? remembered() : "automatic");
    fillSelects();
    linkSummaries();
    listen();
    fileListing.shown = fileListing.rows;
    violationListing.shown = violationListing.rows;
    fileListing.sort("impact", "descending");
    violationListing.sort("severity", "ascending");
    document.querySelectorAll(".needs-script").forEach((node) => { node.hidden = false; });
    addEventListener("hashchange", followLink);
    addEventListener("load", followLink);  // behind the browser's own look for the anchor
})();
