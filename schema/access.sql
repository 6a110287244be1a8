-- Celdora fiscal schema for Access (Jet 4.0 and ACE databases).
--
-- Creates the library's own tables (prefix ut_, and RegimenEmisor) and the
-- host tables that electronic invoicing reads and writes, as far as it
-- touches them. Run it once on an empty database: it drops nothing.
--
-- How to run it: the Access engine executes one statement at a time and
-- does not accept comments. Split the file at each semicolon that ends a line,
-- drop the lines that begin with "--", and execute each remaining
-- statement on the connection. The file keeps to the DDL that both the
-- ANSI-89 mode (DAO, ODBC) and the ANSI-92 mode (OLE DB) accept: it has no
-- DEFAULT and no CHECK clauses, so the columns that other databases give a
-- default of 0 (uf_Reportado, uf_CanceladoSAT, Fiscal, uf_ExpedicionCXC,
-- the amounts of Venta and DVenta, uf_hdTipoFormato) must be given their
-- value on insert.
--
-- Conventions of this file:
-- * Every table has the key Sys_PK of type COUNTER (AutoNumber, Long),
--   except cDocumentos (ID, given by the host) and gv_Configuracion (keyed
--   by the setting's name).
-- * Integer columns of the row writer's type "Long" are INTEGER (Long),
--   those of type "Integer" are SMALLINT (Integer).
-- * A TEXT column holds at most 255 characters, so the 4096-character path
--   and password columns of ut_CFDInfo, the 4000-character settings text
--   and the long texts (monthly report, XML, log lines, acknowledgements)
--   are MEMO. Their length is kept by the row writer, not by the table.
--   The code image is LONGBINARY (OLE object).
-- * Dates are DATETIME.
-- * No relationships are declared: a link column with 0 or Null means no
--   link, and every guard of the library is a query of its own.

-- Seal certificates. The files stay on disk: the row keeps their paths.
-- uf_noCertificado is the 20-digit number the authority gives the certificate
-- and the order in which certificates are listed. uf_Clave is the private
-- key's password, never in the clear: it holds the enciphered text.
-- uf_PFX is Null in rows older than the PFX support.
CREATE TABLE ut_CFDInfo (
    Sys_PK COUNTER PRIMARY KEY,
    uf_noCertificado TEXT(20) NOT NULL,
    uf_Certificado MEMO,
    uf_LlavePrivada MEMO,
    uf_PFX MEMO,
    uf_Clave MEMO
);

-- Folio ranges approved by the tax authority for sealed comprobantes (CFD).
-- uf_CFDInfo is the certificate that seals the range (ut_CFDInfo.Sys_PK).
-- uf_CFDFolioAnterior is the range that held the same document block before
-- this one (ut_CFDFolio.Sys_PK), Null or 0 when there was none.
-- The monthly report takes the approval year and number from here.
CREATE TABLE ut_CFDFolio (
    Sys_PK COUNTER PRIMARY KEY,
    uf_Serie TEXT(10),
    uf_FolioInicial INTEGER NOT NULL,
    uf_FolioFinal INTEGER NOT NULL,
    uf_noAprobacion INTEGER NOT NULL,
    uf_anoAprobacion INTEGER NOT NULL,
    uf_CFDInfo INTEGER NOT NULL,
    uf_CFDFolioAnterior INTEGER
);
CREATE INDEX ix_ut_CFDFolio_CFDInfo ON ut_CFDFolio (uf_CFDInfo);

-- Folio ranges approved for paper comprobantes with a two-dimensional code
-- (CBB), one document block each (uf_BlockDoc = BlockDocumentos.Sys_PK).
-- A block may have several ranges. uf_CBB holds the code's image file as it
-- lay on disk (JPEG, BMP, GIF, WMF or EMF).
-- uf_FechaAprobacion is part of the table for new installations. Databases
-- created before it existed get the column from the range editor, which adds
-- it where it is missing. It stays nullable because such older rows have no
-- date.
CREATE TABLE ut_FoliosCBB (
    Sys_PK COUNTER PRIMARY KEY,
    uf_Serie TEXT(10),
    uf_FolioInicial INTEGER NOT NULL,
    uf_FolioFinal INTEGER NOT NULL,
    uf_BlockDoc SMALLINT NOT NULL,
    uf_NumAprobacion SMALLINT NOT NULL,
    uf_FechaAprobacion DATETIME,
    uf_CBB LONGBINARY
);
CREATE INDEX ix_ut_FoliosCBB_BlockDoc ON ut_FoliosCBB (uf_BlockDoc);

-- One row for each digital comprobante, written by the process that seals or
-- stamps it. A comprobante belongs either to a sale (uf_IVenta = Venta.Sys_PK)
-- or to a receivable (uf_IDCXC = DCXC.Sys_PK). The other link is 0 or Null.
-- A CFD names its folio range (uf_CFDFolio), a CFDI its certificate
-- (uf_CFDI_Info) and its UUID (uf_FolioSAT). The month of uf_FechaHora is the
-- month of the report that lists it. uf_Tipo is the kind of comprobante as
-- the issuing process records it, 3 for a stamped CFDI. uf_CanceladoSAT
-- becomes 1 once the tax authority has cancelled a CFDI, and
-- uf_ackCancelacion_SAT keeps the authority's acknowledgement.
CREATE TABLE ut_CFD (
    Sys_PK COUNTER PRIMARY KEY,
    uf_IVenta INTEGER,
    uf_IDCXC INTEGER,
    uf_CFDFolio INTEGER,
    uf_CFDI_Info INTEGER,
    uf_FechaHora DATETIME,
    uf_FolioSAT TEXT(50),
    uf_Tipo SMALLINT,
    uf_XMLCFDI MEMO,
    uf_CanceladoSAT SMALLINT,
    uf_ackCancelacion_SAT MEMO
);
CREATE INDEX ix_ut_CFD_IVenta ON ut_CFD (uf_IVenta);
CREATE INDEX ix_ut_CFD_IDCXC ON ut_CFD (uf_IDCXC);
CREATE INDEX ix_ut_CFD_CFDFolio ON ut_CFD (uf_CFDFolio);
CREATE INDEX ix_ut_CFD_CFDI_Info ON ut_CFD (uf_CFDI_Info);
CREATE INDEX ix_ut_CFD_FolioSAT ON ut_CFD (uf_FolioSAT);

-- The log line of a comprobante (uf_CFD = ut_CFD.Sys_PK), raw material of the
-- monthly report. uf_Datos is "|" followed by twelve fields, each followed by
-- "|": receiver's RFC, series, folio, approval year and number, date and time,
-- total, VAT, state (1 in force, 0 cancelled), effect, customs document
-- number, its date, customs office. uf_Reportado is 0 until the line goes
-- into a monthly report, then 1.
CREATE TABLE ut_CFDBitacora (
    Sys_PK COUNTER PRIMARY KEY,
    uf_CFD INTEGER,
    uf_Datos MEMO,
    uf_Reportado SMALLINT
);
CREATE INDEX ix_ut_CFDBitacora_CFD ON ut_CFDBitacora (uf_CFD);

-- Stored monthly reports, at most one for a month and year. uf_Nombre is the
-- file name without ".txt": "1", the issuer's RFC, the month as two digits and
-- the year. uf_Contenido is the whole report text, lines joined by CR LF, and
-- empty for a month reported without comprobantes. Its nominal size is 32000
-- but it is a long text here, so that a report of any size is kept whole.
CREATE TABLE ut_CFDInforme (
    Sys_PK COUNTER PRIMARY KEY,
    uf_Nombre TEXT(50) NOT NULL,
    uf_Contenido MEMO,
    uf_Mes INTEGER NOT NULL,
    uf_Anio INTEGER NOT NULL,
    uf_Fecha DATETIME NOT NULL
);
CREATE UNIQUE INDEX ix_ut_CFDInforme_Periodo ON ut_CFDInforme (uf_Anio, uf_Mes);

-- Summary lines that stand for the detail of a sale billed in summary form
-- (FKVenta = Venta.Sys_PK), one or two per sale. Rows are only ever inserted
-- and deleted by sale, never addressed one by one: Sys_PK is a plain
-- surrogate key that no statement of the library reads.
CREATE TABLE ut_HdFacturaResumen (
    Sys_PK COUNTER PRIMARY KEY,
    Unidad TEXT(50),
    Descripcion TEXT(255),
    Cantidad DOUBLE,
    Precio DOUBLE,
    Descuentos DOUBLE,
    Impuestos DOUBLE,
    FKVenta INTEGER
);
CREATE INDEX ix_ut_HdFacturaResumen_FKVenta ON ut_HdFacturaResumen (FKVenta);

-- Fiscal regimes of the issuer, listed by name. Notas may be Null.
CREATE TABLE RegimenEmisor (
    Sys_PK COUNTER PRIMARY KEY,
    Regimen TEXT(255) NOT NULL,
    Notas TEXT(255)
);

-- Host table. Names of the host's document kinds: 4 Factura, 5 Nota de
-- Crédito, 17 Nota de Cargo take part in electronic invoicing. The key is ID,
-- given by the host, not generated.
CREATE TABLE cDocumentos (
    ID INTEGER NOT NULL PRIMARY KEY,
    Const TEXT(50)
);

-- Host table. A block of documents of one kind (Documento) and series. The
-- fiscal settings tie a block of kind 4, 5 or 17 to one of: a folio range
-- (uf_CFDFolio, with Fiscal 1), a certificate for CFDI (uf_CFDI_Info), or a
-- CBB range (ut_FoliosCBB.uf_BlockDoc). 0 or Null means no link.
CREATE TABLE BlockDocumentos (
    Sys_PK COUNTER PRIMARY KEY,
    Serie TEXT(10),
    Documento SMALLINT,
    Fiscal SMALLINT,
    uf_CFDFolio INTEGER,
    uf_CFDI_Info INTEGER
);
CREATE INDEX ix_BlockDocumentos_CFDFolio ON BlockDocumentos (uf_CFDFolio);

-- Host table. A folio: its number (Folio) within its block (Block =
-- BlockDocumentos.Sys_PK). Sales and receivables point here through IFolio.
CREATE TABLE FoliosDocumentos (
    Sys_PK COUNTER PRIMARY KEY,
    Folio INTEGER,
    Block INTEGER
);
CREATE INDEX ix_FoliosDocumentos_Block ON FoliosDocumentos (Block);

-- Host table, as far as electronic invoicing reads it. A sale, on the folio
-- IFolio (FoliosDocumentos.Sys_PK). Total = Subtotal - Descuento1 - Descuento2
-- + Impuesto1 + Impuesto2 + Impuesto3 + Impuesto4, VAT in Impuesto1.
-- StatusAdministrativo: 3 processed, 99 cancelled. uf_hdTipoFormato: 0
-- detailed, 1 summary with one concept, 2 summary with two concepts.
CREATE TABLE Venta (
    Sys_PK COUNTER PRIMARY KEY,
    IFolio INTEGER,
    Documento SMALLINT,
    StatusAdministrativo SMALLINT,
    Referencia TEXT(50),
    Subtotal DOUBLE,
    Descuento1 DOUBLE,
    Descuento2 DOUBLE,
    Impuesto1 DOUBLE,
    Impuesto2 DOUBLE,
    Impuesto3 DOUBLE,
    Impuesto4 DOUBLE,
    uf_hdTipoFormato SMALLINT
);
CREATE INDEX ix_Venta_IFolio ON Venta (IFolio);

-- Host table. A line of a sale (FK_Venta_Detalle = Venta.Sys_PK), with the VAT
-- of the line in Impuesto1. The VAT rate of a line is
-- Impuesto1 * 100 / (Cantidad * Precio).
CREATE TABLE DVenta (
    Sys_PK COUNTER PRIMARY KEY,
    FK_Venta_Detalle INTEGER,
    Cantidad DOUBLE,
    Precio DOUBLE,
    Impuesto1 DOUBLE
);
CREATE INDEX ix_DVenta_Venta ON DVenta (FK_Venta_Detalle);

-- Host table. A receivable, on the folio IFolio (FoliosDocumentos.Sys_PK).
-- XMLUnidad and XMLPorcentajeIVAVenta are set for the receivable's
-- comprobante: the unit of its concept and the VAT rate of the sale behind it.
CREATE TABLE DCXC (
    Sys_PK COUNTER PRIMARY KEY,
    IFolio INTEGER,
    Documento SMALLINT,
    XMLUnidad TEXT(50),
    XMLPorcentajeIVAVenta DOUBLE
);
CREATE INDEX ix_DCXC_IFolio ON DCXC (IFolio);

-- Host table. Consumption centres. uf_DomicilioCFD is the centre's expedition
-- address (Domicilio.Sys_PK), Null when it has none. uf_ExpedicionCXC is 1 for
-- the one centre whose address receivables use, 0 for the others.
CREATE TABLE CConsumo (
    Sys_PK COUNTER PRIMARY KEY,
    Descripcion TEXT(100),
    uf_DomicilioCFD INTEGER,
    uf_ExpedicionCXC SMALLINT
);

-- Host table. An address, written through the host's address object. Direccion
-- holds street, exterior and interior number as "||street|number|interior".
-- Colonia, Telefono and Notas are the neighbourhood, telephone and remarks.
CREATE TABLE Domicilio (
    Sys_PK COUNTER PRIMARY KEY,
    ICiudad INTEGER,
    Direccion TEXT(255),
    CodPos TEXT(10),
    Colonia TEXT(100),
    Telefono TEXT(50),
    Notas TEXT(255)
);

-- Host table. A city, within its country (IPais = Pais.Sys_PK) and, when the
-- country is divided, its state (IEstado = Estado.Sys_PK, Null when none).
-- The host keeps a city named "(desconocido)" for addresses whose city is
-- unknown: the fiscal settings refuse it.
CREATE TABLE Ciudad (
    Sys_PK COUNTER PRIMARY KEY,
    Nombre TEXT(100),
    IPais INTEGER,
    IEstado INTEGER
);

-- Host table. A state, within its country (IPais = Pais.Sys_PK). Only the
-- address controls' source of places reads and writes it.
CREATE TABLE Estado (
    Sys_PK COUNTER PRIMARY KEY,
    Nombre TEXT(100),
    IPais INTEGER
);

-- Host table. A country.
CREATE TABLE Pais (
    Sys_PK COUNTER PRIMARY KEY,
    Nombre TEXT(100)
);

-- Host table. Display names of the tax types: uf_TipoI1 for Impuesto1 (VAT,
-- "IVA") and uf_TipoI3 for Impuesto3 ("IEPS"). Empty or Null until set.
CREATE TABLE CfgImpuesto (
    Sys_PK COUNTER PRIMARY KEY,
    uf_TipoI1 TEXT(50),
    uf_TipoI3 TEXT(50)
);

-- Host table. User groups. The permission settings hold lists of their Sys_PK.
CREATE TABLE UserGroup (
    Sys_PK COUNTER PRIMARY KEY,
    GroupID TEXT(50)
);

-- Company settings store of the platform, one row for each key. A key holds a
-- number (Numero) or a text (Texto), always the same one for a given key. A
-- key without a row answers the reader's default.
CREATE TABLE gv_Configuracion (
    Clave TEXT(60) NOT NULL PRIMARY KEY,
    Numero DOUBLE,
    Texto MEMO
);
