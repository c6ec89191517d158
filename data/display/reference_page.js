'use strict';

// The page of a report on reference data: a table of its records, or, where a record is more than a row, a list of them
// and a part for each. An entry box narrows all of it to what is looked for.
(function (orvex) {
  const {element, reference} = orvex;
  const builders = {Met: orvex.referenceMonths, Profile: orvex.referenceProfiles};

  function nameRecords(model, fields) {
    const naming = fields.slice(0, reference.kinds[model.kind].named || 1);
    model.records.forEach((record, index) => {
      const names = naming.map((field) => reference.valueOf(field, record.texts)).filter((name) => name !== '');
      record.name = names.join(', ') || '(no name)';
      record.anchor = `record-${index + 1}`;
    });
  }

  function table(model, fields) {
    const {kinds, columnsOf} = reference;
    const {title, groups} = kinds[model.kind];
    const columns = columnsOf(fields, groups);
    return {blocks: [], sections: [], list: orvex.referenceRows.list({caption: title, columns}, model.records)};
  }

  // The parts of the records stand in the order of the list.
  function followOrder(list, blocks, sections) {
    const blockOf = new Map(list.rows.map((row, index) => [row, blocks[index]]));
    list.block.addEventListener('orvex-sort', () => {
      const rows = Array.from(list.block.querySelectorAll('tbody > tr'));
      orvex.reorder(sections, rows.map((row) => blockOf.get(row)));
    });
  }

  function inSections({list, blocks}) {
    const sections = orvex.inChunks(blocks, () => element('section', {class: 'parts'}));
    followOrder(list, blocks, sections);
    return {list, blocks, sections};
  }

  // What finds a record: its texts and those of its components, but no figures, which are in each.
  function searchText(record, textFields) {
    const of = (texts) => textFields.map((name) => texts[name] || '');
    return [record, ...record.components.map((texts) => ({texts}))].flatMap(({texts}) => of(texts)).join('\n')
      .toLowerCase();
  }

  function findBox(model, fields, built) {
    const {many} = reference.kinds[model.kind];
    const names = [...fields, ...orvex.referenceFields['profile components']].filter((field) => field.type === 'text')
      .map((field) => field.name);
    return orvex.findBox({
      id: 'find-record', label: `Find ${many}`, placeholder: 'Name or other text',
      texts: () => model.records.map((record) => searchText(record, names)),
      countText: (found, all, words) => found === all ? '' :
        `${found.toLocaleString('en-US')} of ${reference.countText(model.kind, all)} with “${words.join(' ')}”`,
      show: (index, shown) => {
        built.list.rows[index].hidden = !shown;
        if (built.blocks.length > 0) built.blocks[index].hidden = !shown;
      },
      done: () => orvex.showChunks([...built.list.block.querySelectorAll('tbody'), ...built.sections]),
    }, model.records.length);
  }

  function titleBlock(model) {
    const {of = 'Reference data'} = reference.kinds[model.kind];
    return element('header', {class: 'title-block'}, element('h1', {}, model.title),
        element('p', {class: 'subtitle'}, `${of}: ${reference.countText(model.kind, model.records.length)}`));
  }

  function content(model) {
    const {many, table: tableName} = reference.kinds[model.kind];
    if (model.records.length === 0) return [element('p', {class: 'missing'}, `The report holds no ${many}.`)];
    const fields = reference.fieldsOf(tableName, model.records.map((record) => record.texts));
    nameRecords(model, fields);
    const builder = builders[model.kind];
    const built = builder ? inSections(builder.build(fields, model.records)) : table(model, fields);
    const several = model.records.length > 1;
    return [several ? findBox(model, fields, built) : null, several || !builder ? built.list.block : null,
      ...built.sections].filter((node) => node !== null);
  }

  /** The page of a report, as for reports on emissions. */
  function buildPage(report) {
    const model = orvex.readReference(report);
    return {
      main: element('main', {id: 'report', class: 'reference'}, titleBlock(model), ...content(model)),
      title: model.title,
      subject: model.records.length === 1 ? model.records[0].name : null,
      navigation: null,
      contents: () => null,
    };
  }

  orvex.buildPage = buildPage;
})(window.orvex = window.orvex || {});
