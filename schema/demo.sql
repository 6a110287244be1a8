-- Celdora demo company: a small, consistent data set to try the library
-- with, for tests and for the command-line tool.
--
-- Load it after the schema of the same database (sqlite.sql or
-- mariadb.sql), on empty tables. It is written in the subset that SQLite
-- and MariaDB share and runs unchanged on both: explicit keys, dates as
-- 'YYYY-MM-DD HH:MM:SS' text, only REPLACE and CHAR among functions.
-- Each statement ends with a semicolon at the end of a line, and comments
-- are whole lines beginning with "--", between statements only.
--
-- The company is ESCUELA KEMPER URGATE SA DE CV, RFC EKU9003173C9, issuing
-- CFD (sealed, approved folio ranges), CFDI (stamped) and CBB (paper with
-- a two-dimensional code) comprobantes in October and November 2026.
-- October has been reported to the tax authority, November not yet.

-- Document kinds of the host. 4, 5 and 17 take part in invoicing.
INSERT INTO cDocumentos (ID, Const) VALUES
(1, 'Cotización'),
(2, 'Pedido'),
(3, 'Remisión'),
(4, 'Factura'),
(5, 'Nota de Crédito'),
(17, 'Nota de Cargo');

-- Places. The host keeps "(desconocido)" for an unknown city and country.
INSERT INTO Pais (Sys_PK, Nombre) VALUES
(1, 'México'),
(2, 'Estados Unidos'),
(3, '(desconocido)');

INSERT INTO Estado (Sys_PK, Nombre, IPais) VALUES
(1, 'Nuevo León', 1),
(2, 'Jalisco', 1),
(3, 'Ciudad de México', 1),
(4, 'Texas', 2);

INSERT INTO Ciudad (Sys_PK, Nombre, IPais, IEstado) VALUES
(1, '(desconocido)', 3, NULL),
(2, 'Monterrey', 1, 1),
(3, 'Guadalajara', 1, 2),
(4, 'Ciudad de México', 1, 3),
(5, 'San Antonio', 2, 4);

-- Addresses. 1 is the issuer's fiscal address (setting NVCA102b), 2 to 4
-- the expedition addresses of the consumption centres. Direccion is
-- "||street|exterior number|interior number".
INSERT INTO Domicilio (Sys_PK, ICiudad, Direccion, CodPos, Colonia, Telefono, Notas) VALUES
(1, 4, '||Av. Paseo de la Reforma|505|Piso 12', '06500', 'Cuauhtémoc', '55 5123 4567', ''),
(2, 4, '||Av. Juárez|123|', '06010', 'Centro', '55 5510 2030', NULL),
(3, 2, '||Av. Constitución|1500|Local 4', '64000', 'Centro', '81 8340 1234', NULL),
(4, 3, '||Av. Vallarta|2440|', '44130', 'Arcos Vallarta', '33 3615 0000', NULL);

-- Consumption centres. Matriz gives the expedition address of
-- receivables (uf_ExpedicionCXC 1).
INSERT INTO CConsumo (Sys_PK, Descripcion, uf_DomicilioCFD, uf_ExpedicionCXC) VALUES
(1, 'Matriz', 2, 1),
(2, 'Sucursal Guadalajara', 4, 0),
(3, 'Sucursal Monterrey', 3, 0);

-- User groups. Permission settings list their keys.
INSERT INTO UserGroup (Sys_PK, GroupID) VALUES
(1, 'Administradores'),
(3, 'Ventas'),
(7, 'Cobranza'),
(12, 'Auditoría');

-- Fiscal regimes of the issuer. The second has no remarks.
INSERT INTO RegimenEmisor (Sys_PK, Regimen, Notas) VALUES
(1, 'Régimen General de Ley Personas Morales', 'Título II de la Ley del ISR'),
(2, 'Personas Morales con Fines no Lucrativos', NULL);

-- Tax type names, not yet set: one empty, one Null.
INSERT INTO CfgImpuesto (Sys_PK, uf_TipoI1, uf_TipoI3) VALUES
(1, '', NULL);

-- Company settings.
INSERT INTO gv_Configuracion (Clave, Numero, Texto) VALUES
('NVCA100', NULL, 'ESCUELA KEMPER URGATE SA DE CV'),
('NVCA101', NULL, 'EKU9003173C9'),
('NVCA102b', NULL, '1'),
('NVCA300xa', 2, NULL),
('NVCA328x', 2, NULL),
('NVCA316x', NULL, '1;3');

-- Seal certificates. 1 seals the CFD folio ranges, 2 is the certificate of
-- the CFDI blocks, 3 is used by nothing and may be deleted. The passwords
-- are left empty here: a setup tool enciphers the real ones. Certificate 1
-- is older than the PFX support and has no PFX path.
INSERT INTO ut_CFDInfo (Sys_PK, uf_noCertificado, uf_Certificado, uf_LlavePrivada, uf_PFX, uf_Clave) VALUES
(1, '30001000000400002443', '/opt/celdora/certificados/csd-30001000000400002443.cer', '/opt/celdora/certificados/csd-30001000000400002443.key', NULL, ''),
(2, '30001000000500003416', '/opt/celdora/certificados/csd-EKU9003173C9.cer', '/opt/celdora/certificados/csd-EKU9003173C9.key', '/opt/celdora/certificados/csd-EKU9003173C9.pfx', ''),
(3, '30001000000500003456', '/opt/celdora/certificados/csd-30001000000500003456.cer', '/opt/celdora/certificados/csd-30001000000500003456.key', '', '');

-- Approved CFD folio ranges, all sealed with certificate 1. Range 2 (series
-- B) continues range 1: it took over the credit note block that range 1
-- held before. Range 3 is an older approval without series that no block
-- and no comprobante uses, so it may be deleted.
INSERT INTO ut_CFDFolio (Sys_PK, uf_Serie, uf_FolioInicial, uf_FolioFinal, uf_noAprobacion, uf_anoAprobacion, uf_CFDInfo, uf_CFDFolioAnterior) VALUES
(1, 'A', 1, 1000, 12345, 2010, 1, NULL),
(2, 'B', 1, 500, 23456, 2011, 1, 1),
(3, NULL, 1, 200, 34567, 2012, 1, 0);

-- Document blocks.
--  1 Factura A          CFD, folio range 1 (Fiscal 1)
--  2 Nota de Crédito B  CFD, folio range 2 (Fiscal 1)
--  3 Factura F          CFDI, certificate 2
--  4 Nota de Cargo D    CFDI, certificate 2
--  5 Factura C          CBB range 1 (folios 1 to 500)
--  6 Factura E          tied to nothing (links Null)
--  7 Nota de Cargo G    tied to nothing (links 0)
--  8 Pedido P           another document kind, ignored by the fiscal lists
--  9 Nota de Cargo H    CBB range 2 (folios 1 to 100)
INSERT INTO BlockDocumentos (Sys_PK, Serie, Documento, Fiscal, uf_CFDFolio, uf_CFDI_Info) VALUES
(1, 'A', 4, 1, 1, NULL),
(2, 'B', 5, 1, 2, NULL),
(3, 'F', 4, 0, NULL, 2),
(4, 'D', 17, 0, NULL, 2),
(5, 'C', 4, 0, NULL, NULL),
(6, 'E', 4, 0, NULL, NULL),
(7, 'G', 17, 0, 0, 0),
(8, 'P', 2, 0, NULL, NULL),
(9, 'H', 17, 0, NULL, NULL);

-- CBB ranges. Range 2 comes from before the approval date was kept: its
-- uf_FechaAprobacion is Null. Neither has its code image loaded.
INSERT INTO ut_FoliosCBB (Sys_PK, uf_Serie, uf_FolioInicial, uf_FolioFinal, uf_BlockDoc, uf_NumAprobacion, uf_FechaAprobacion, uf_CBB) VALUES
(1, 'C', 1, 500, 5, 9876, '2011-03-15 00:00:00', NULL),
(2, 'H', 1, 100, 9, 4321, NULL, NULL);

-- Folios: Sys_PK, the folio number and its block. Block 5 has the folios
-- 1 and 500 (both bounds of its CBB range), 250 (inside) and 501 (one
-- past the end). Block 9 has 100 (its last folio) and 101 (one past).
INSERT INTO FoliosDocumentos (Sys_PK, Folio, Block) VALUES
(1, 1, 1),
(2, 2, 1),
(3, 3, 1),
(4, 4, 1),
(5, 5, 1),
(6, 1, 3),
(7, 2, 3),
(8, 1, 5),
(9, 250, 5),
(10, 500, 5),
(11, 501, 5),
(12, 1, 6),
(13, 1, 8),
(14, 1, 2),
(15, 1, 4),
(16, 100, 9),
(17, 101, 9),
(18, 1, 7);

-- Sales. VAT at 16 % in Impuesto1, IEPS in Impuesto3 for sale 7.
--  1 A-1    CFD of October, reported
--  2 A-2    CFD of October, reported, lines at 0 % and 16 %
--  3 A-3    CFD of November, not reported
--  4 A-4    CFD of November, sale cancelled (status 99)
--  5 A-5    no comprobante, lines at 16 % and 11 %
--  6 F-1    CFDI of October, with discount
--  7 F-2    CFDI of November
--  8 C-1    CBB, first folio of the range, lines at 0 % only
--  9 C-250  CBB, inside the range, with both discounts
-- 10 C-500  CBB, last folio of the range
-- 11 C-501  CBB, folio one past the range
-- 12 E-1    comprobante without folio range, October
-- 13 P-1    a Pedido, block of another kind
-- 14        no folio at all (IFolio 0)
INSERT INTO Venta (Sys_PK, IFolio, Documento, StatusAdministrativo, Referencia, Subtotal, Descuento1, Descuento2, Impuesto1, Impuesto2, Impuesto3, Impuesto4, uf_hdTipoFormato) VALUES
(1, 1, 4, 3, 'A-1', 1000, 0, 0, 160, 0, 0, 0, 0),
(2, 2, 4, 3, 'A-2', 2205, 0, 0, 216, 0, 0, 0, 0),
(3, 3, 4, 3, 'A-3', 3000, 0, 0, 480, 0, 0, 0, 0),
(4, 4, 4, 99, 'A-4', 850, 0, 0, 136, 0, 0, 0, 0),
(5, 5, 4, 3, 'A-5', 1500, 0, 0, 215, 0, 0, 0, 0),
(6, 6, 4, 3, 'F-1', 1500, 100, 0, 224, 0, 0, 0, 0),
(7, 7, 4, 3, 'F-2', 800, 0, 0, 128, 0, 64, 0, 0),
(8, 8, 4, 3, 'C-1', 400, 0, 0, 0, 0, 0, 0, 0),
(9, 9, 4, 3, 'C-250', 5000, 250, 50, 752, 0, 0, 0, 0),
(10, 10, 4, 3, 'C-500', 120, 0, 0, 19.2, 0, 0, 0, 0),
(11, 11, 4, 3, 'C-501', 300, 0, 0, 48, 0, 0, 0, 0),
(12, 12, 4, 3, 'E-1', 200, 0, 0, 32, 0, 0, 0, 0),
(13, 13, 2, 3, 'P-1', 700, 0, 0, 112, 0, 0, 0, 0),
(14, 0, 4, 3, NULL, 100, 0, 0, 16, 0, 0, 0, 0);

-- Lines of sales 1 to 5 and 8. The VAT rate of a line is
-- Impuesto1 * 100 / (Cantidad * Precio): sale 1 and 3 only 16, sale 2
-- 0 and 16, sale 4 16, sale 5 16 and 11, sale 8 only 0.
INSERT INTO DVenta (Sys_PK, FK_Venta_Detalle, Cantidad, Precio, Impuesto1) VALUES
(1, 1, 2, 500, 160),
(2, 2, 10, 85.5, 0),
(3, 2, 3, 450, 216),
(4, 3, 4, 250, 160),
(5, 3, 2, 1000, 320),
(6, 4, 1, 850, 136),
(7, 5, 1, 1000, 160),
(8, 5, 1, 500, 55),
(9, 8, 4, 100, 0);

-- Receivables.
--  1 B-1    credit note with a CFD of November, not reported
--  2 D-1    debit note in a CFDI block, no comprobante
--  3 H-100  debit note, last folio of its CBB range
--  4 H-101  debit note, one past its CBB range
--  5 G-1    debit note in a block tied to nothing (links 0)
--  6        no folio at all (IFolio 0)
INSERT INTO DCXC (Sys_PK, IFolio, Documento, XMLUnidad, XMLPorcentajeIVAVenta) VALUES
(1, 14, 5, NULL, NULL),
(2, 15, 17, NULL, NULL),
(3, 16, 17, NULL, NULL),
(4, 17, 17, NULL, NULL),
(5, 18, 17, NULL, NULL),
(6, 0, 17, NULL, NULL);

-- Comprobantes. uf_Tipo 1 is a sealed CFD, 3 a stamped CFDI.
--  1 sale 1, CFD range 1, October, reported
--  2 sale 2, CFD range 1, October, reported
--  3 sale 6, CFDI certificate 2, October (never in a report: no range)
--  4 sale 12, no folio range (uf_CFDFolio 0), October, not reported
--  5 sale 3, CFD range 1, November
--  6 sale 4, CFD range 1, November, the sale was cancelled afterwards
--  7 sale 7, CFDI certificate 2, November
--  8 receivable 1, CFD range 2, November
INSERT INTO ut_CFD (Sys_PK, uf_IVenta, uf_IDCXC, uf_CFDFolio, uf_CFDI_Info, uf_FechaHora, uf_FolioSAT, uf_Tipo, uf_XMLCFDI, uf_CanceladoSAT, uf_ackCancelacion_SAT) VALUES
(1, 1, 0, 1, NULL, '2026-10-05 10:15:00', NULL, 1, NULL, 0, NULL),
(2, 2, 0, 1, NULL, '2026-10-12 16:40:00', NULL, 1, NULL, 0, NULL),
(3, 6, 0, NULL, 2, '2026-10-20 09:05:00', '6F1A2B3C-4D5E-4F60-8172-93A4B5C6D7E8', 3, '<?xml version="1.0" encoding="UTF-8"?><cfdi:Comprobante xmlns:cfdi="http://www.sat.gob.mx/cfd/4" Version="4.0" Serie="F" Folio="1" Fecha="2026-10-20T09:05:00" SubTotal="1500.00" Descuento="100.00" Moneda="MXN" Total="1624.00" TipoDeComprobante="I" NoCertificado="30001000000500003416"><cfdi:Emisor Rfc="EKU9003173C9" Nombre="ESCUELA KEMPER URGATE"/><cfdi:Receptor Rfc="GAMA810512QW3"/><cfdi:Complemento><tfd:TimbreFiscalDigital xmlns:tfd="http://www.sat.gob.mx/TimbreFiscalDigital" Version="1.1" UUID="6F1A2B3C-4D5E-4F60-8172-93A4B5C6D7E8" FechaTimbrado="2026-10-20T09:05:12"/></cfdi:Complemento></cfdi:Comprobante>', 0, NULL),
(4, 12, 0, 0, 0, '2026-10-28 13:00:00', NULL, 1, NULL, 0, NULL),
(5, 3, 0, 1, NULL, '2026-11-03 11:20:00', NULL, 1, NULL, 0, NULL),
(6, 4, 0, 1, NULL, '2026-11-09 17:45:00', NULL, 1, NULL, 0, NULL),
(7, 7, 0, NULL, 2, '2026-11-15 12:00:00', 'A1B2C3D4-E5F6-4A7B-8C9D-0E1F2A3B4C5D', 3, '<?xml version="1.0" encoding="UTF-8"?><cfdi:Comprobante xmlns:cfdi="http://www.sat.gob.mx/cfd/4" Version="4.0" Serie="F" Folio="2" Fecha="2026-11-15T12:00:00" SubTotal="800.00" Moneda="MXN" Total="992.00" TipoDeComprobante="I" NoCertificado="30001000000500003416"><cfdi:Emisor Rfc="EKU9003173C9" Nombre="ESCUELA KEMPER URGATE"/><cfdi:Receptor Rfc="GAMA810512QW3"/><cfdi:Complemento><tfd:TimbreFiscalDigital xmlns:tfd="http://www.sat.gob.mx/TimbreFiscalDigital" Version="1.1" UUID="A1B2C3D4-E5F6-4A7B-8C9D-0E1F2A3B4C5D" FechaTimbrado="2026-11-15T12:00:09"/></cfdi:Complemento></cfdi:Comprobante>', 0, NULL),
(8, 0, 1, 2, NULL, '2026-11-18 10:30:00', NULL, 1, NULL, 0, NULL);

-- Log lines, one for each comprobante with the same key. Fields:
-- receiver's RFC, series, folio, approval year and number, date and time,
-- total, VAT, state (1 in force, 0 cancelled), effect (I income, E
-- expense), customs document, its date, customs office. Lines 1 and 2 went
-- into the October report and keep the normalised form the report wrote.
-- Line 6 is in state 0: its sale was cancelled. CFDI lines carry no
-- approval.
INSERT INTO ut_CFDBitacora (Sys_PK, uf_CFD, uf_Datos, uf_Reportado) VALUES
(1, 1, '|XAXX010101000|A|1|201012345|05/10/2026 10:15:00|1160.00|160.00|1|I||||', 1),
(2, 2, '|CIN960904FQ2|A|2|201012345|12/10/2026 16:40:00|2421.00|216.00|1|I|26 47 3807 6001234|02/10/2026|240 Nuevo Laredo|', 1),
(3, 3, '|GAMA810512QW3|F|1||20/10/2026 09:05:00|1624.00|224.00|1|I||||', 0),
(4, 4, '|XAXX010101000|E|1||28/10/2026 13:00:00|232.00|32.00|1|I||||', 0),
(5, 5, '|LOPJ7009128T5|A|3|201012345|03/11/2026 11:20:00|3480.00|480.00|1|I||||', 0),
(6, 6, '|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|0|I||||', 0),
(7, 7, '|GAMA810512QW3|F|2||15/11/2026 12:00:00|992.00|128.00|1|I||||', 0),
(8, 8, '|CIN960904FQ2|B|1|201123456|18/11/2026 10:30:00|580.00|80.00|1|E||||', 0);

-- Stored reports. September 2026 was reported empty. The October report
-- holds log lines 1 and 2, joined by CR LF. The line break is written as
-- CHAR(13,10), which both SQLite and MariaDB read as those two characters,
-- put in place of the "~" that separates the lines in the literal: raw
-- CR LF bytes inside a literal would not survive every editor, version
-- control setting or embedding of this file.
INSERT INTO ut_CFDInforme (Sys_PK, uf_Nombre, uf_Contenido, uf_Mes, uf_Anio, uf_Fecha) VALUES
(1, '1EKU9003173C9092026', '', 9, 2026, '2026-10-01 08:00:00'),
(2, '1EKU9003173C9102026', REPLACE('|XAXX010101000|A|1|201012345|05/10/2026 10:15:00|1160.00|160.00|1|I||||~|CIN960904FQ2|A|2|201012345|12/10/2026 16:40:00|2421.00|216.00|1|I|26 47 3807 6001234|02/10/2026|240 Nuevo Laredo|', '~', CHAR(13,10)), 10, 2026, '2026-11-02 09:30:00');
