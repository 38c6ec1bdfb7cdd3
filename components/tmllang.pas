{ This file was automatically created by Lazarus. Do not edit!
  This source is only used to compile and install the package.
 }

unit tmllang;

{$warn 5023 off : no warning about unused units}
interface

uses
  Mlaccess, Mlaccesses, Mlapplier, Mlbfile, Mlbytes, Mlchange, Mlcheckitems, 
  Mlcodec, Mlcustomlang, Mldirection, Mlentry, Mlextended, Mlfilefields, 
  Mlfontaccess, Mlformstorage, Mlformsurface, Mlitemsaccess, Mlitemskeeper, 
  Mlkeys, Mllabel, Mllang, Mllangactions, Mllangcombo, Mllangdispatcher, 
  Mllangfiles, Mllanglinked, Mllangrt, Mllangrtse, Mllangtexts, Mllangtlv, 
  Mllanguages, Mlldocument, Mllfile, Mllines, Mlloading, Mlmap, Mlmarks, 
  Mlnames, Mlopenfile, Mlorder, Mlpath, Mlpool, Mlproglang, Mlruneditor, 
  Mlstaging, Mlsurface, Mltables, Mltext, Mltextaccess, Mltextrows, Mltexts, 
  Mltransfer, Mltranslationfile, Mlutf8, Mlviewitems, Mlvieworder, Mlvisual, 
  Mlwatching;

implementation

end.
