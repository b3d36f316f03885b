// Put at the end of a page of a study: looks at it as a reader would, and leaves what it finds, a line each and "fim"
// behind them, in an element of its own. "?papel" looks at it as it is set on A4.
document.currentScript.remove();
(async () => {
    const found = [];
    const tell = what => found.push(what);
    (window.scriptErrors || ['o início da página não tem quem ouça os erros']).forEach(error => tell('script: ' + error));
    window.addEventListener('error', event => tell('script: ' + event.message));

    const onPaper = location.search === '?papel';
    const inDrawing = element => element.closest('svg') !== null && element.tagName.toLowerCase() !== 'svg';
    const placeOf = element => (element.closest('[id]') || {id: '?'}).id;

    // The rules for paper instead of those for the screen, on a page as broad as A4 is between its margins.
    function setOnPaper() {
        for (const rule of document.styleSheets[0].cssRules) {
            if (!rule.media) continue;
            rule.media.mediaText = rule.media.mediaText === 'print' ? 'all' : 'not all';
        }
        document.body.style.width = '178mm';
        document.body.style.margin = '0';
    }

    function lookAtTexts() {
        const none = /\b(nan|[+-]?inf(inity)?|undefined)\b/i;
        const texts = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
        for (let text = texts.nextNode(); text; text = texts.nextNode())
            if (none.test(text.data))
                tell(`${placeOf(text.parentElement)}: não é número: ${text.data.trim().slice(0, 60)}`);
        for (const element of document.querySelectorAll('svg, svg *'))
            for (const attribute of element.attributes)
                if (none.test(attribute.value))
                    tell(`${placeOf(element)}: não é número: ${attribute.name}="${attribute.value.slice(0, 60)}"`);
    }

    function lookAtCharts() {
        const charts = document.querySelectorAll('svg');
        if (charts.length === 0) tell('a página não tem gráficos');
        for (const chart of charts) {
            const title = chart.querySelector(':scope > title'), described = chart.querySelector(':scope > desc');
            const name = chart.getAttribute('aria-label') || (title && title.textContent);
            if (chart.getAttribute('role') !== 'img') tell(`${placeOf(chart)}: gráfico sem role="img"`);
            if (!name || !name.trim()) tell(`${placeOf(chart)}: gráfico sem nome`);
            if (!described || !described.textContent.trim()) tell(`${placeOf(chart)}: gráfico sem palavras`);
            if (chart.getBoundingClientRect().width > chart.parentElement.clientWidth + 1)
                tell(`${placeOf(chart)}: gráfico mais largo do que o seu lugar`);
        }
    }

    function lookAtTables() {
        if (!document.querySelector('table')) tell('a página não tem quadros');
        for (const table of document.querySelectorAll('table')) {
            if (!table.caption || !table.caption.textContent.trim()) tell(`${placeOf(table)}: quadro sem título`);
            if (table.querySelector('th:not([scope])')) tell(`${placeOf(table)}: cabeçalho sem alcance`);
        }
    }

    function lookAtNames() {
        const met = new Set();
        for (const element of document.querySelectorAll('[id]')) {
            if (met.has(element.id)) tell(`o nome ${element.id} está duas vezes`);
            met.add(element.id);
        }
    }

    // On a screen what is broad moves in a place of its own, which the keyboard reaches; on paper nothing moves.
    function lookAtBreadth() {
        const room = onPaper ? document.body.clientWidth : document.documentElement.clientWidth;
        const where = onPaper ? 'A4' : `${room} pontos`;
        if (!onPaper && document.documentElement.scrollWidth > room) tell(`a página é mais larga do que ${where}`);
        const broad = []; // the outermost of each
        for (const element of document.querySelectorAll('body *')) {
            if (inDrawing(element)) continue;
            const roll = element.closest('.rola');
            const free = roll && roll !== element && !onPaper;
            if (free || element.getBoundingClientRect().right <= room + 1) continue;
            if (broad.some(other => other.contains(element))) continue;
            broad.push(element);
            tell(`${placeOf(element)}: ${element.tagName.toLowerCase()} mais largo do que ${where}`);
        }
        for (const roll of document.querySelectorAll('.rola'))
            if (roll.tabIndex !== 0 || !roll.getAttribute('aria-label'))
                tell(`${placeOf(roll)}: o que rola não se alcança com o teclado, ou não tem nome`);
    }

    // At least 4.5 to 1 between a text and its ground.
    function lookAtContrast() {
        const parts = colour => (colour.match(/[\d.]+/g) || []).map(Number);
        const light = colour => {
            const [red, green, blue] = parts(colour).slice(0, 3).map(part => {
                const share = part / 255;
                return share <= 0.04045 ? share / 12.92 : ((share + 0.055) / 1.055) ** 2.4;
            });
            return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
        };
        const groundOf = element => {
            for (let each = element; each; each = each.parentElement) {
                const colour = getComputedStyle(each).backgroundColor;
                if (parts(colour)[3] !== 0) return colour;
            }
            return 'rgb(255, 255, 255)';
        };
        const met = new Set();
        for (const element of document.querySelectorAll('body *')) {
            if (inDrawing(element) || ![...element.childNodes].some(node => node.nodeType === 3 && node.data.trim()))
                continue;
            const colour = getComputedStyle(element).color, ground = groundOf(element), both = colour + ground;
            if (met.has(both)) continue;
            met.add(both);
            const lights = [light(colour), light(ground)].sort((a, b) => b - a);
            if ((lights[0] + 0.05) / (lights[1] + 0.05) < 4.5)
                tell(`${placeOf(element)}: mal se lê: ${colour} em ${ground}`);
        }
    }

    // Each link is followed: what it leads to then stands at the top, or the page is at its end.
    async function lookAtLinks() {
        const links = document.querySelectorAll('nav a');
        if (links.length === 0) tell('o índice não tem ligações');
        for (const link of links) {
            const target = document.getElementById(decodeURIComponent((link.getAttribute('href') || '').slice(1)));
            if (!target) {
                tell(`o índice leva a nada: ${link.getAttribute('href')}`);
                continue;
            }
            window.scrollTo(0, target.offsetTop < window.innerHeight ? document.body.scrollHeight : 0);
            link.click();
            await new Promise(done => setTimeout(done, 20));
            const top = target.getBoundingClientRect().top;
            const end = window.scrollY + window.innerHeight >= document.documentElement.scrollHeight - 2;
            if (Math.abs(top) > 2 && !(end && top > 0 && top < window.innerHeight))
                tell(`o índice não chega a ${target.id}`);
        }
    }

    try {
        if (onPaper) setOnPaper();
        lookAtBreadth();
        lookAtTexts();
        lookAtCharts();
        lookAtTables();
        lookAtNames();
        lookAtContrast();
        if (!onPaper) await lookAtLinks();
    } catch (error) {
        tell('quem procura falhou: ' + error);
    }
    const list = document.createElement('pre');
    list.id = 'achados'; // run.sh reads it
    list.textContent = [...new Set(found), 'fim'].join('\n');
    document.body.append(list);
})();
