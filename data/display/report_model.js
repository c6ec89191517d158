'use strict';

// Turns a report file on emissions into the model that its page is drawn from. Texts stay as they are in the file; what
// is missing there is missing here (null, or an empty list), since a report may leave elements out.
(function (orvex) {
  const {ReportError, isBlank, indentOf} = orvex;
  const {child, children, textOf, textsOf, attributesOf} = orvex.xml;
  const noBreakSpace = '\u00a0';
  const nameSeparator = '   -   ';
  const fixedRoofTypes = ['Vertical Fixed Roof Tank', 'Horizontal Tank'];

  // The id is what stands before the type in "VF-101   -   Horizontal Tank"; it may hold the separator itself.
  function idOf(name, type) {
    const ending = nameSeparator + type.trim();
    if (name.endsWith(ending)) return name.slice(0, -ending.length);
    const at = name.lastIndexOf(nameSeparator);
    return at < 0 ? name : name.slice(0, at);
  }

  function readComponent(element) {
    const losses = textsOf(element);
    const name = losses.NAME || '';
    const total = losses.TotalEmissions === undefined ? null : losses.TotalEmissions;
    delete losses.NAME;
    delete losses.TotalEmissions;
    return {name: name.replace(/^\u00a0+/, ''), primary: indentOf(name) === 0, losses, total};
  }

  function readGroup(element) {
    const group = {name: element.localName, text: '', items: [], fittings: []};
    if (element.children.length === 0) group.text = element.textContent;
    for (const item of element.children) {
      const fitting = attributesOf(item);
      if (fitting.FitType !== undefined || fitting.Quantity !== undefined) {
        group.fittings.push(Object.assign({category: item.textContent}, fitting));
      } else {
        group.items.push({name: item.localName, text: item.textContent});
      }
    }
    return group;
  }

  function readLiquid(element) {
    const row = textsOf(element);
    const name = row.MixtureComponent || '';
    row.primary = indentOf(name) === 0;
    row.MixtureComponent = name.replace(/^\u00a0+/, '');
    return row;
  }

  function readLine(element) {
    const cells = [];
    for (const attribute of element.attributes) {
      if (/^month_\d+$/.test(attribute.name)) cells.push({column: attribute.name, text: attribute.value});
    }
    return {label: element.getAttribute('label') || noBreakSpace, cells};
  }

  function readDetail(element) {
    const data = child(element, 'Data');
    const roof = child(element, 'RoofStatus');
    return {
      unit: textOf(element, 'ReportUnit') || (data && data.getAttribute('Unit')) || '',
      lines: data ? children(data, 'Value').map(readLine) : [],
      fittings: roof ? children(roof, 'Value').map(attributesOf) : [],
    };
  }

  function readTank(element) {
    const type = textOf(element, 'TankType') || '';
    const name = textOf(element, 'TankName') || '';
    const physical = child(element, 'PhysicalChar');
    const groups = physical ? Array.from(physical.children) : [];
    const identification = groups.find((group) => group.localName === 'Identification');
    const totals = child(element, 'EmissionTotals') || element;
    const detail = child(element, 'Detail');
    return {
      name,
      id: idOf(name, type),
      type,
      fixedRoof: fixedRoofTypes.includes(type.trim()),
      location: textOf(element, 'Location') || '',
      company: '',
      loss: null,
      identification: identification ? textsOf(identification) : null,
      groups: groups.filter((group) => group !== identification).map(readGroup),
      liquid: children(element, 'LiquidContents').map(readLiquid),
      detail: detail ? readDetail(detail) : null,
      components: children(totals, 'COMPONENT').map(readComponent),
    };
  }

  function readSummary(element) {
    return {
      months: element.getAttribute('months') || '',
      tanks: children(element, 'TankSum').map(attributesOf),
      total: textOf(element, 'Total'),
    };
  }

  function readPeriods(report, tanks) {
    const listed = children(report, 'TimePeriod').map((period) => textOf(period, 'Value') || period.textContent.trim());
    if (listed.length > 0) return listed;
    const ofTank = tanks.map((tank) => textOf(tank, 'TimePeriod')).find((text) => !isBlank(text));
    return ofTank ? ofTank.split(', ') : [];
  }

  // The roll-up knows more of a tank than its own part of a Brief report. USER IDs are unique, but for their blanks.
  function joinSummary(tanks, summary) {
    const rows = new Map(summary.tanks.map((row) => [(row.id || '').trim(), row]));
    for (const tank of tanks) {
      const row = rows.get(tank.id);
      if (!row) continue;
      tank.company = row.company || '';
      tank.loss = row.loss === undefined ? null : row.loss;
      tank.location = tank.location || row.location || '';
    }
  }

  /**
   * The model of a report on emissions.
   * @param {{root: Element, kind: string}} report as orvex.readReport gives it
   * @param {string} fileName how messages call the file
   * @returns {{kind, periods, tanks, summary}} kind "Brief", "Summary" or "Detail"
   * @throws {ReportError} when the report has no tank
   */
  function readModel({root, kind}, fileName) {
    const elements = children(root, 'Tank');
    if (elements.length === 0) throw new ReportError(`${fileName} holds a report without any tank.`);
    const tanks = elements.map(readTank);
    const summaryElement = child(root, 'Summary');
    const summary = summaryElement ? readSummary(summaryElement) : null;
    if (summary) joinSummary(tanks, summary);
    for (const tank of tanks) {
      if (tank.identification && !tank.company) tank.company = tank.identification.Company || '';
    }
    return {kind, periods: readPeriods(root, elements), tanks, summary};
  }

  orvex.readModel = readModel;
})(window.orvex = window.orvex || {});
