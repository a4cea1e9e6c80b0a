/// zulcore for Free Pascal and Delphi. zulcore_raw has every function and constant of the library; this unit has the usual
/// ones with dynamic arrays, exceptions and keys that are wiped. README.md tells what kinds of strings mean.
unit zulcore;
{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}

interface

uses
  {$IFDEF FPC}SysUtils, Classes{$ELSE}System.SysUtils, System.Classes{$ENDIF}, zulcore_raw;

type
  /// What a call of the library refuses. Message has all of it.
  EZulError = class(Exception)
  private
    FCode: Integer;
    FDetail: UTF8String;
  public
    constructor CreateCode(ACode: Integer; const ADetail: UTF8String);
    /// "DECRYPT_ERROR"
    function Name: string;
    /// The general text of the code.
    function Text: UTF8String;
    property Code: Integer read FCode;
    /// What this call had to say; often empty.
    property Detail: UTF8String read FDetail;
  end;

  /// A digest or MAC of data in pieces. Finish can be called once.
  TZulDigest = class
  protected
    FContext: TBytes;
    procedure AddPiece(Data: Pointer; Size: Integer); virtual; abstract;
    function EndPiece(Output: Pointer; Size: Integer): Integer; virtual; abstract;
  public
    destructor Destroy; override;
    procedure Add(const Data: TBytes);
    procedure AddStream(Stream: TStream);
    procedure AddFile(const FileName: string);
    /// The whole digest; of shake128 and shake256 as many bytes as asked for.
    function Finish(Size: Integer = 0): TBytes;
  end;

  TZulHash = class(TZulDigest)
  protected
    procedure AddPiece(Data: Pointer; Size: Integer); override;
    function EndPiece(Output: Pointer; Size: Integer): Integer; override;
  public
    constructor Create(const Algorithm: UTF8String = 'sha256');
  end;

  TZulHmac = class(TZulDigest)
  protected
    procedure AddPiece(Data: Pointer; Size: Integer); override;
    function EndPiece(Output: Pointer; Size: Integer): Integer; override;
  public
    constructor Create(const Key: TBytes; const Algorithm: UTF8String = 'sha256');
  end;

  /// A key of any kind. It is wiped when it is closed or freed, and means nothing outside of this process.
  TZulKey = class
  private
    FText: TBytes;
    procedure Take(var Room: TBytes; Length: Integer);
    function GetHandle: PAnsiChar;
  public
    /// 'rsa' (3072 bits), 'rsa-4096', 'p-256', 'p-384', 'p-521', 'ed25519' or 'x25519'
    constructor Generate(const Kind: UTF8String);
    /// A file of a key, certificate or request.
    constructor ReadFile(const FileName: string; const Password: UTF8String = '');
    /// PEM or base64 of a key, certificate or request.
    constructor ReadText(const Text: UTF8String; const Password: UTF8String = '');
    /// A key of a PKCS #12 file, whose certificates are written to CertsOut unless that is ''.
    constructor UnpackP12(const FileName: string; const Password: UTF8String; const CertsOut: string = '';
      Number: Integer = 0);
    destructor Destroy; override;
    procedure Close;

    /// Writes PEM: a public key as it is, a private key encrypted under a password.
    procedure Save(const FileName: string; const Password: UTF8String = ''; const Parameters: UTF8String = '');
    procedure SaveUnencrypted(const FileName: string; Options: Integer = ZUL_KEY_FORMAT_PEM);
    function PublicKey: TZulKey;

    function Query(const Item: UTF8String): UTF8String;
    function Algorithm: UTF8String;
    function Curve: UTF8String;
    function Fingerprint: UTF8String;
    function Bits: Integer;
    function IsPrivate: Boolean;
    function Matches(Other: TZulKey): Boolean;
    /// Raises unless the key's values are valid and belong together.
    procedure Check;

    function Sign(const Data: TBytes; const Algorithm: UTF8String = ''; Options: Integer = 0): TBytes;
    function SignFile(const FileName: string; const Algorithm: UTF8String = ''; Options: Integer = 0): TBytes;
    /// Verify and VerifyFile raise unless the signature verifies.
    procedure Verify(const Signature, Data: TBytes; const Algorithm: UTF8String = ''; Options: Integer = 0);
    procedure VerifyFile(const Signature: TBytes; const FileName: string; const Algorithm: UTF8String = '';
      Options: Integer = 0);
    /// The secret shared with the owner of another key: derive a key from it with ZulHkdf.
    function Agree(Other: TZulKey): TBytes;

    /// Kind and bits, never the key.
    function ToString: string; override;
    /// The key string for functions of zulcore_raw; valid until the key is closed.
    property Handle: PAnsiChar read GetHandle;
  end;

/// Check raises for a negative result and gives any other one back: for functions that return a length.
function ZulCheck(Value: Integer): Integer;
/// CheckStatus raises for any result but 0: for functions that return a status.
procedure ZulCheckStatus(Status: Integer);
function ZulVersion: Integer;

function ZulHash(const Data: TBytes; const Algorithm: UTF8String = 'sha256'): TBytes;
function ZulHashFile(const FileName: string; const Algorithm: UTF8String = 'sha256'): TBytes;
function ZulHashHex(const Data: TBytes; const Algorithm: UTF8String = 'sha256'): string;
function ZulHashFileHex(const FileName: string; const Algorithm: UTF8String = 'sha256'): string;
function ZulHmac(const Key, Data: TBytes; const Algorithm: UTF8String = 'sha256'): TBytes;

/// Without a nonce a random one is put before the result, and ZulDecrypt takes it from there.
function ZulEncrypt(const Key, Data: TBytes; const Aad: TBytes = nil; const Nonce: TBytes = nil;
  const Algorithm: UTF8String = 'aes-256-gcm'): TBytes;
function ZulDecrypt(const Key, Data: TBytes; const Aad: TBytes = nil; const Nonce: TBytes = nil;
  const Algorithm: UTF8String = 'aes-256-gcm'): TBytes;

function ZulPbkdf2(Size: Integer; const Password, Salt: TBytes; Iterations: Integer = 600000;
  const Hash: UTF8String = 'sha256'): TBytes;
function ZulHkdf(Size: Integer; const Key, Salt, Info: TBytes; const Hash: UTF8String = 'sha256'): TBytes;
function ZulScrypt(Size: Integer; const Password, Salt: TBytes; N: Integer = 131072; R: Integer = 8;
  P: Integer = 1): TBytes;
function ZulArgon2id(Size: Integer; const Password, Salt: TBytes; MemoryKiB: Integer = 65536; Passes: Integer = 3;
  Lanes: Integer = 4): TBytes;

function ZulRandomBytes(Count: Integer): TBytes;
/// A uniform number from Lower to Upper, both included.
function ZulRandomNumber(Lower, Upper: Integer): Integer;
/// Zeroes the bytes, of all who hold the same array or text, and lets go of them.
procedure ZulWipe(var Data: TBytes); overload;
procedure ZulWipe(var Text: UTF8String); overload;
procedure ZulWipeFile(const FileName: string);

/// The bytes of a text in UTF-8.
function ZulUtf8(const Text: UTF8String): TBytes;
function ZulToHex(const Data: TBytes): UTF8String;
function ZulFromHex(const Text: UTF8String): TBytes;
function ZulToBase64(const Data: TBytes): UTF8String;
function ZulFromBase64(const Text: UTF8String): TBytes;

/// Lists are joined by ";": keys "age1..." and "AGE-SECRET-KEY-1..." or names of files of them.
function ZulMakeIdentity: UTF8String;
function ZulRecipient(const Identity: RawByteString): UTF8String;
procedure ZulSealFile(const FileOut, FileIn: string; const Recipients: RawByteString; Options: Integer = 0);
procedure ZulSealFileWithPassword(const FileOut, FileIn: string; const Password: UTF8String; Options: Integer = 0);
procedure ZulOpenFile(const FileOut, FileIn: string; const Identities: RawByteString; Options: Integer = 0);
procedure ZulOpenFileWithPassword(const FileOut, FileIn: string; const Password: UTF8String; Options: Integer = 0);

/// Certificates, requests and CRLs are described by keyword=value pairs, "CN=Alice;profile=client".
procedure ZulSelfSign(const CertOut: string; Key: TZulKey; const Description: UTF8String; Options: Integer = 0);
procedure ZulRequest(const RequestOut: string; Key: TZulKey; const Description: UTF8String; Options: Integer = 0);
procedure ZulIssue(const CertOut, IssuerCert: string; IssuerKey: TZulKey; const Request: string;
  const Description: UTF8String = ''; Options: Integer = 0); overload;
procedure ZulIssue(const CertOut, IssuerCert: string; IssuerKey, SubjectKey: TZulKey; const Description: UTF8String;
  Options: Integer = 0); overload;
/// A list goes on from EarlierCrl.
procedure ZulIssueCrl(const CrlOut, IssuerCert: string; IssuerKey: TZulKey; const Revoked: UTF8String;
  const Description: UTF8String = ''; const EarlierCrl: string = ''; Options: Integer = 0);
/// The same as PEM.
function ZulSelfSignPem(Key: TZulKey; const Description: UTF8String): UTF8String;
function ZulRequestPem(Key: TZulKey; const Description: UTF8String): UTF8String;
function ZulIssuePem(const IssuerCert: string; IssuerKey: TZulKey; const Request: string;
  const Description: UTF8String = ''): UTF8String; overload;
function ZulIssuePem(const IssuerCert: string; IssuerKey, SubjectKey: TZulKey;
  const Description: UTF8String): UTF8String; overload;
/// Cert is the name of a file, or PEM.
function ZulCertQuery(const Cert: string; const Query: UTF8String): UTF8String;
function ZulCertReport(const Cert: string; Options: Integer = 0): UTF8String;
/// ZulCheckName and ZulCheckPath raise where the certificate does not hold.
procedure ZulCheckName(const Cert: string; const HostOrAddress: UTF8String; Options: Integer = 0);
/// A path ends at one of Trusted and may lead through Others. Lists are joined by ";". Report is set before the exception
/// is raised.
procedure ZulCheckPath(const Cert, Trusted, Others, Evidence: string; const Conditions: UTF8String;
  out Report: UTF8String; Options: Integer = 0);

/// TZulKey.UnpackP12 reads such files. Key may be nil.
procedure ZulP12Pack(const FileOut, Certs: string; Key: TZulKey; const Password: UTF8String;
  const FriendlyName: UTF8String = ''; Options: Integer = 0);
/// Without a password it shows what is visible without one.
function ZulP12List(const FileName: string; const Password: UTF8String = ''; Options: Integer = 0): UTF8String;

/// Messages (CMS) with RSA keys. Certs: files or PEM joined by ";", the signer's first.
procedure ZulCmsSign(const FileOut, FileIn, Certs: string; Key: TZulKey; Options: Integer = ZUL_HASH_SHA256);
/// Raises unless the signature verifies. Without SignerCert anybody in the message can have signed. HexDigest: of content
/// that the message does not carry.
procedure ZulCmsVerify(const FileIn: string; const SignerCert: string = ''; const HexDigest: UTF8String = '');
procedure ZulCmsContent(const FileOut, FileIn: string);
/// Raises, and leaves no message, unless all of the count of recipients can read it.
procedure ZulCmsEncrypt(const FileOut, FileIn: string; const RecipientCerts: array of string;
  Options: Integer = ZUL_CMS_CIPHER_AES256);
procedure ZulCmsDecrypt(const FileOut, FileIn: string; Key: TZulKey; const RecipientCert: string = '');

/// A request to an OCSP responder: the bytes to send.
function ZulOcspRequest(const IssuerCert, CertOrSerial: string; Options: Integer = ZUL_HASH_SHA1): TBytes;
/// Without IssuerCert the signature is not verified.
function ZulOcspRead(const Response: string; const IssuerCert: string = ''): UTF8String;

implementation

{$IFNDEF FPC}
uses
  System.IOUtils;
{$ELSE}{$IFDEF UNIX}
uses
  BaseUnix;
{$ENDIF}{$ENDIF}

const
  kLongestKey = 90000;
  kLongestReport = 64 * 1024 * 1024;
  kPiece = 65536;

var
  EmptyByte: Byte = 0;

constructor EZulError.CreateCode(ACode: Integer; const ADetail: UTF8String);
var
  Line: string;
begin
  FCode := ACode;
  FDetail := ADetail;
  Line := Name + ' (' + IntToStr(ACode) + '): ' + string(Text);
  if FDetail <> '' then
    Line := Line + ': ' + string(FDetail);
  inherited Create(Line);
end;

function EZulError.Name: string;
var
  I: Integer;
begin
  for I := Low(ZUL_ERROR_NAMES) to High(ZUL_ERROR_NAMES) do
    if ZUL_ERROR_NAMES[I].Code = FCode then
      Exit(ZUL_ERROR_NAMES[I].Name);
  Result := 'ERROR';
end;

function EZulError.Text: UTF8String;
begin
  SetLength(Result, ZUL_ErrorLookup(nil, 0, FCode));
  if Result <> '' then
    ZUL_ErrorLookup(PAnsiChar(Result), Length(Result) + 1, FCode);
end;

function TextLength(Text: PAnsiChar): Integer;
begin
  Result := 0;
  while Text[Result] <> #0 do
    Inc(Result);
end;

procedure Fail(Code: Integer);
var
  Room: array[0..511] of AnsiChar;
  Detail: UTF8String;
begin
  Room[0] := #0;
  ZUL_LastError(Room, High(Room));
  SetString(Detail, PAnsiChar(@Room[0]), TextLength(Room));
  raise EZulError.CreateCode(Abs(Code), Detail);
end;

function ZulCheck(Value: Integer): Integer;
begin
  if Value < 0 then
    Fail(Value);
  Result := Value;
end;

procedure ZulCheckStatus(Status: Integer);
begin
  if Status <> 0 then
    Fail(Status);
end;

function ZulVersion: Integer;
begin
  Result := ZUL_Version(nil, nil);
end;

// A text for the library ends at its first zero byte: one with such a byte inside would be cut.
procedure RefuseZero(const Value: RawByteString);
begin
  if Pos(RawByteString(#0), Value) > 0 then
    raise EZulError.CreateCode(BAD_PARAM_ERROR, 'a text with a zero byte');
end;

function Utf8(const Value: UTF8String): PAnsiChar;
begin
  RefuseZero(Value);
  Result := PAnsiChar(Value);
end;

function Utf8OrNil(const Value: UTF8String): PAnsiChar;
begin
  if Value = '' then
    Exit(nil);
  Result := Utf8(Value);
end;

// File names are in the system's encoding: the code page of Windows, and what the program's strings have elsewhere.
function Native(const Value: string): RawByteString;
begin
  {$IFDEF FPC}
  Result := Value;
  {$ELSE}
  Result := AnsiString(Value);
  if string(AnsiString(Result)) <> Value then
    raise EZulError.CreateCode(BAD_PARAM_ERROR, 'a name that the code page of the system cannot write');
  {$ENDIF}
  RefuseZero(Result);
end;

function OrNil(const Value: RawByteString): PAnsiChar;
begin
  if Value = '' then
    Exit(nil);
  RefuseZero(Value);
  Result := PAnsiChar(Value);
end;

function Size(const Data: TBytes): Integer;
begin
  if Length(Data) > MaxInt then
    raise EZulError.CreateCode(OUT_OF_RANGE_ERROR, 'data above 2 GiB');
  Result := Length(Data);
end;

function Start(const Data: TBytes): Pointer;
begin
  if Length(Data) = 0 then
    Exit(@EmptyByte);
  Result := @Data[0];
end;

function NewBytes(Count: Integer): TBytes;
begin
  if Count < 0 then
    raise EZulError.CreateCode(OUT_OF_RANGE_ERROR, 'a negative length');
  Result := nil;
  SetLength(Result, Count);
end;

function KeyHandle(Key: TZulKey): PAnsiChar;
begin
  if Key = nil then
    raise EZulError.CreateCode(BAD_PARAM_ERROR, 'no key');
  Result := Key.Handle;
end;

{ TZulDigest }

destructor TZulDigest.Destroy;
begin
  ZulWipe(FContext);
  inherited;
end;

procedure TZulDigest.Add(const Data: TBytes);
begin
  AddPiece(Start(Data), Size(Data));
end;

procedure TZulDigest.AddStream(Stream: TStream);
var
  Piece: TBytes;
  Count: Integer;
begin
  Piece := NewBytes(kPiece);
  try
    repeat
      Count := Stream.Read(Piece[0], kPiece);
      if Count > 0 then
        AddPiece(@Piece[0], Count);
    until Count <= 0;
  finally
    ZulWipe(Piece);
  end;
end;

procedure TZulDigest.AddFile(const FileName: string);
var
  Stream: TFileStream;
begin
  RefuseZero(Native(FileName));
  Stream := TFileStream.Create(FileName, fmOpenRead or fmShareDenyWrite);
  try
    AddStream(Stream);
  finally
    Stream.Free;
  end;
end;

function TZulDigest.Finish(Size: Integer): TBytes;
begin
  if Size <= 0 then
    Size := ZulCheck(EndPiece(nil, 0));
  Result := NewBytes(Size);
  SetLength(Result, ZulCheck(EndPiece(Start(Result), Size)));
end;

constructor TZulHash.Create(const Algorithm: UTF8String);
begin
  FContext := NewBytes(ZulCheck(HASH_Begin(nil, 0, Utf8(Algorithm), 0)));
  ZulCheck(HASH_Begin(@FContext[0], Length(FContext), PAnsiChar(Algorithm), 0));
end;

procedure TZulHash.AddPiece(Data: Pointer; Size: Integer);
begin
  ZulCheckStatus(HASH_Add(@FContext[0], Data, Size));
end;

function TZulHash.EndPiece(Output: Pointer; Size: Integer): Integer;
begin
  Result := HASH_End(Output, Size, @FContext[0]);
end;

constructor TZulHmac.Create(const Key: TBytes; const Algorithm: UTF8String);
begin
  FContext := NewBytes(ZulCheck(HMAC_Begin(nil, 0, Start(Key), Size(Key), Utf8(Algorithm), 0)));
  ZulCheck(HMAC_Begin(@FContext[0], Length(FContext), Start(Key), Size(Key), PAnsiChar(Algorithm), 0));
end;

procedure TZulHmac.AddPiece(Data: Pointer; Size: Integer);
begin
  ZulCheckStatus(HMAC_Add(@FContext[0], Data, Size));
end;

function TZulHmac.EndPiece(Output: Pointer; Size: Integer): Integer;
begin
  Result := HMAC_End(Output, Size, @FContext[0]);
end;

{ TZulKey }

// A key string is read into room for the longest at once: a query would derive the key of an encrypted file twice.
procedure TZulKey.Take(var Room: TBytes; Length: Integer);
begin
  try
    ZulCheck(Length);
    FText := NewBytes(Length + 1);
    Move(Room[0], FText[0], Length);
  finally
    ZulWipe(Room);
  end;
end;

constructor TZulKey.Generate(const Kind: UTF8String);
var
  Room: TBytes;
begin
  Room := NewBytes(kLongestKey + 1);
  Take(Room, KEY_Make(@Room[0], kLongestKey, Utf8(Kind), 0));
end;

constructor TZulKey.ReadFile(const FileName: string; const Password: UTF8String);
var
  Room: TBytes;
  Name: RawByteString;
begin
  Name := Native(FileName);
  RefuseZero(Password);
  Room := NewBytes(kLongestKey + 1);
  Take(Room, KEY_Read(@Room[0], kLongestKey, PAnsiChar(Name), PAnsiChar(Password), 0));
end;

constructor TZulKey.ReadText(const Text: UTF8String; const Password: UTF8String);
var
  Room: TBytes;
begin
  RefuseZero(Text);
  RefuseZero(Password);
  Room := NewBytes(kLongestKey + 1);
  Take(Room, KEY_Read(@Room[0], kLongestKey, PAnsiChar(Text), PAnsiChar(Password), 0));
end;

constructor TZulKey.UnpackP12(const FileName: string; const Password: UTF8String; const CertsOut: string;
  Number: Integer);
var
  Room: TBytes;
  Name, Certs: RawByteString;
  Status: Integer;
begin
  Name := Native(FileName);
  Certs := Native(CertsOut);
  RefuseZero(Password);
  Room := NewBytes(kLongestKey + 1);
  Status := P12_Unpack(OrNil(Certs), @Room[0], kLongestKey, PAnsiChar(Name), PAnsiChar(Password), Number);
  if Status = 0 then
    Take(Room, TextLength(PAnsiChar(@Room[0])))
  else
    Take(Room, -Status);
end;

destructor TZulKey.Destroy;
begin
  Close;
  inherited;
end;

procedure TZulKey.Close;
begin
  ZulWipe(FText);
end;

function TZulKey.GetHandle: PAnsiChar;
begin
  if FText = nil then
    raise EZulError.CreateCode(INVALID_DATA_ERROR, 'the key is closed');
  Result := @FText[0];
end;

procedure TZulKey.Save(const FileName: string; const Password, Parameters: UTF8String);
var
  Name: RawByteString;
  Secret: PAnsiChar;
begin
  Name := Native(FileName);
  Secret := Utf8OrNil(Password);
  // The library refuses the empty password, so that no private key is written unencrypted by mistake.
  if (Secret = nil) and IsPrivate then
    Secret := PAnsiChar(Password);
  ZulCheckStatus(KEY_Save(PAnsiChar(Name), Handle, Secret, Utf8OrNil(Parameters), ZUL_KEY_FORMAT_PEM));
end;

procedure TZulKey.SaveUnencrypted(const FileName: string; Options: Integer);
var
  Name: RawByteString;
begin
  Name := Native(FileName);
  ZulCheckStatus(KEY_Save(PAnsiChar(Name), Handle, nil, nil, Options));
end;

function TZulKey.PublicKey: TZulKey;
var
  Room: TBytes;
begin
  Room := NewBytes(kLongestKey + 1);
  Result := TZulKey.Create;
  try
    Result.Take(Room, KEY_Public(@Room[0], kLongestKey, Handle));
  except
    Result.Free;
    raise;
  end;
end;

function TZulKey.Query(const Item: UTF8String): UTF8String;
const
  kNumber = 1;
var
  Room: Integer;
begin
  if ZulCheck(KEY_Query(nil, 0, Handle, Utf8(Item), ZUL_QUERY_GETTYPE)) = kNumber then
    Exit(UTF8String(IntToStr(ZulCheck(KEY_Query(nil, 0, Handle, PAnsiChar(Item), 0)))));
  Room := ZulCheck(KEY_Query(nil, 0, Handle, PAnsiChar(Item), 0));
  SetLength(Result, Room);
  if Room > 0 then
    ZulCheck(KEY_Query(PAnsiChar(Result), Room, Handle, PAnsiChar(Item), 0));
end;

function TZulKey.Algorithm: UTF8String;
begin
  Result := Query('algorithm');
end;

function TZulKey.Curve: UTF8String;
begin
  Result := Query('curve');
end;

function TZulKey.Fingerprint: UTF8String;
begin
  Result := Query('fingerprint');
end;

function TZulKey.Bits: Integer;
begin
  Result := ZulCheck(KEY_Query(nil, 0, Handle, 'bits', 0));
end;

function TZulKey.IsPrivate: Boolean;
begin
  Result := ZulCheck(KEY_Query(nil, 0, Handle, 'isPrivate', 0)) = 1;
end;

function TZulKey.Matches(Other: TZulKey): Boolean;
var
  Status: Integer;
begin
  Status := KEY_Match(Handle, KeyHandle(Other));
  Result := Status = 0;
  if Status <> NO_MATCH_ERROR then
    ZulCheckStatus(Status);
end;

procedure TZulKey.Check;
begin
  ZulCheckStatus(KEY_Check(Handle, 0));
end;

function TZulKey.Sign(const Data: TBytes; const Algorithm: UTF8String; Options: Integer): TBytes;
var
  Room: Integer;
begin
  Room := ZulCheck(SIG_Sign(nil, 0, Start(Data), Size(Data), Handle, Utf8(Algorithm), Options));
  Result := NewBytes(Room);
  SetLength(Result, ZulCheck(SIG_Sign(Start(Result), Room, Start(Data), Size(Data), Handle, PAnsiChar(Algorithm),
    Options)));
end;

function TZulKey.SignFile(const FileName: string; const Algorithm: UTF8String; Options: Integer): TBytes;
var
  Name: RawByteString;
  Room: Integer;
begin
  Name := Native(FileName);
  Room := ZulCheck(SIG_SignFile(nil, 0, PAnsiChar(Name), Handle, Utf8(Algorithm), Options));
  Result := NewBytes(Room);
  SetLength(Result, ZulCheck(SIG_SignFile(Start(Result), Room, PAnsiChar(Name), Handle, PAnsiChar(Algorithm), Options)));
end;

procedure TZulKey.Verify(const Signature, Data: TBytes; const Algorithm: UTF8String; Options: Integer);
begin
  ZulCheckStatus(SIG_Verify(Start(Signature), Size(Signature), Start(Data), Size(Data), Handle, Utf8(Algorithm),
    Options));
end;

procedure TZulKey.VerifyFile(const Signature: TBytes; const FileName: string; const Algorithm: UTF8String;
  Options: Integer);
var
  Name: RawByteString;
begin
  Name := Native(FileName);
  ZulCheckStatus(SIG_VerifyFile(Start(Signature), Size(Signature), PAnsiChar(Name), Handle, Utf8(Algorithm), Options));
end;

function TZulKey.Agree(Other: TZulKey): TBytes;
begin
  Result := NewBytes(ZulCheck(KEY_Agree(nil, 0, Handle, KeyHandle(Other), 0)));
  ZulCheck(KEY_Agree(Start(Result), Length(Result), Handle, Other.Handle, 0));
end;

function TZulKey.ToString: string;
begin
  if FText = nil then
    Exit('closed key');
  Result := string(Algorithm) + ' key of ' + IntToStr(Bits) + ' bits';
  if IsPrivate then
    Result := 'private ' + Result
  else
    Result := 'public ' + Result;
end;

{ Digests, encryption, derivation }

function DigestOf(Digest: TZulDigest; const Data: TBytes): TBytes;
begin
  try
    Digest.Add(Data);
    Result := Digest.Finish;
  finally
    Digest.Free;
  end;
end;

function ZulHash(const Data: TBytes; const Algorithm: UTF8String): TBytes;
begin
  Result := DigestOf(TZulHash.Create(Algorithm), Data);
end;

function ZulHashFile(const FileName: string; const Algorithm: UTF8String): TBytes;
var
  Digest: TZulHash;
begin
  Digest := TZulHash.Create(Algorithm);
  try
    Digest.AddFile(FileName);
    Result := Digest.Finish;
  finally
    Digest.Free;
  end;
end;

function ZulHashHex(const Data: TBytes; const Algorithm: UTF8String): string;
begin
  Result := string(ZulToHex(ZulHash(Data, Algorithm)));
end;

function ZulHashFileHex(const FileName: string; const Algorithm: UTF8String): string;
begin
  Result := string(ZulToHex(ZulHashFile(FileName, Algorithm)));
end;

function ZulHmac(const Key, Data: TBytes; const Algorithm: UTF8String): TBytes;
begin
  Result := DigestOf(TZulHmac.Create(Key, Algorithm), Data);
end;

function NonceOption(const Nonce: TBytes): Integer;
begin
  Result := 0;
  if Nonce = nil then
    Result := ZUL_AEAD_RANDOM_NONCE;
end;

function ZulEncrypt(const Key, Data, Aad, Nonce: TBytes; const Algorithm: UTF8String): TBytes;
begin
  Result := NewBytes(ZulCheck(AEAD_Encrypt(nil, 0, Start(Data), Size(Data), Start(Key), Size(Key), Start(Nonce),
    Size(Nonce), Start(Aad), Size(Aad), Utf8(Algorithm), NonceOption(Nonce))));
  ZulCheck(AEAD_Encrypt(Start(Result), Length(Result), Start(Data), Size(Data), Start(Key), Size(Key), Start(Nonce),
    Size(Nonce), Start(Aad), Size(Aad), PAnsiChar(Algorithm), NonceOption(Nonce)));
end;

function ZulDecrypt(const Key, Data, Aad, Nonce: TBytes; const Algorithm: UTF8String): TBytes;
begin
  Result := NewBytes(ZulCheck(AEAD_Decrypt(nil, 0, Start(Data), Size(Data), Start(Key), Size(Key), Start(Nonce),
    Size(Nonce), Start(Aad), Size(Aad), Utf8(Algorithm), NonceOption(Nonce))));
  ZulCheck(AEAD_Decrypt(Start(Result), Length(Result), Start(Data), Size(Data), Start(Key), Size(Key), Start(Nonce),
    Size(Nonce), Start(Aad), Size(Aad), PAnsiChar(Algorithm), NonceOption(Nonce)));
end;

function ZulPbkdf2(Size: Integer; const Password, Salt: TBytes; Iterations: Integer; const Hash: UTF8String): TBytes;
begin
  Result := NewBytes(Size);
  ZulCheck(KDF_Pbkdf2(Start(Result), Size, Start(Password), zulcore.Size(Password), Start(Salt), zulcore.Size(Salt),
    Iterations, Utf8(Hash)));
end;

function ZulHkdf(Size: Integer; const Key, Salt, Info: TBytes; const Hash: UTF8String): TBytes;
begin
  Result := NewBytes(Size);
  ZulCheck(KDF_Hkdf(Start(Result), Size, Start(Key), zulcore.Size(Key), Start(Salt), zulcore.Size(Salt), Start(Info),
    zulcore.Size(Info), Utf8(Hash)));
end;

function ZulScrypt(Size: Integer; const Password, Salt: TBytes; N, R, P: Integer): TBytes;
begin
  Result := NewBytes(Size);
  ZulCheck(KDF_Scrypt(Start(Result), Size, Start(Password), zulcore.Size(Password), Start(Salt), zulcore.Size(Salt),
    N, R, P));
end;

function ZulArgon2id(Size: Integer; const Password, Salt: TBytes; MemoryKiB, Passes, Lanes: Integer): TBytes;
begin
  Result := NewBytes(Size);
  ZulCheck(KDF_Argon2id(Start(Result), Size, Start(Password), zulcore.Size(Password), Start(Salt),
    zulcore.Size(Salt), MemoryKiB, Passes, Lanes));
end;

{ Random numbers, wiping, encodings }

function ZulRandomBytes(Count: Integer): TBytes;
var
  Done, Piece: Integer;
begin
  Result := NewBytes(Count);
  Done := 0;
  while Done < Count do
  begin
    Piece := Count - Done;
    if Piece > kPiece then
      Piece := kPiece;
    ZulCheckStatus(RNG_Bytes(@Result[Done], Piece, nil, 0));
    Inc(Done, Piece);
  end;
end;

function ZulRandomNumber(Lower, Upper: Integer): Integer;
begin
  if (Lower > Upper) or (Int64(Upper) - Lower >= $FFFFFFFF) then
    raise EZulError.CreateCode(OUT_OF_RANGE_ERROR, 'no such range of numbers');
  Result := RNG_Number(Lower, Upper);
end;

procedure ZulWipe(var Data: TBytes);
begin
  if Length(Data) > 0 then
    WIPE_Data(@Data[0], Size(Data));
  Data := nil;
end;

procedure ZulWipe(var Text: UTF8String);
begin
  // A literal of the program's own cannot be written.
  if StringRefCount(Text) > 0 then
    WIPE_Data(Pointer(Text), Length(Text));
  Text := '';
end;

procedure ZulWipeFile(const FileName: string);
var
  Name: RawByteString;
begin
  Name := Native(FileName);
  ZulCheckStatus(WIPE_File(PAnsiChar(Name), 0));
end;

function ZulUtf8(const Text: UTF8String): TBytes;
begin
  Result := NewBytes(Length(Text));
  if Text <> '' then
    Move(Text[1], Result[0], Length(Text));
end;

function ZulToHex(const Data: TBytes): UTF8String;
begin
  SetLength(Result, ZulCheck(CNV_HexStrFromBytes(nil, 0, Start(Data), Size(Data))));
  if Result <> '' then
    ZulCheck(CNV_HexStrFromBytes(PAnsiChar(Result), Length(Result), Start(Data), Size(Data)));
  Result := UTF8String(LowerCase(string(Result)));
end;

function ZulFromHex(const Text: UTF8String): TBytes;
begin
  Result := NewBytes(ZulCheck(CNV_BytesFromHexStr(nil, 0, Utf8(Text))));
  if Result <> nil then
    ZulCheck(CNV_BytesFromHexStr(@Result[0], Length(Result), PAnsiChar(Text)));
end;

function ZulToBase64(const Data: TBytes): UTF8String;
begin
  SetLength(Result, ZulCheck(CNV_B64StrFromBytes(nil, 0, Start(Data), Size(Data))));
  if Result <> '' then
    ZulCheck(CNV_B64StrFromBytes(PAnsiChar(Result), Length(Result), Start(Data), Size(Data)));
end;

function ZulFromBase64(const Text: UTF8String): TBytes;
begin
  Result := NewBytes(ZulCheck(CNV_BytesFromB64Str(nil, 0, Utf8(Text))));
  if Result <> nil then
    ZulCheck(CNV_BytesFromB64Str(@Result[0], Length(Result), PAnsiChar(Text)));
end;

{ Sealed files }

function ZulMakeIdentity: UTF8String;
begin
  SetLength(Result, ZulCheck(SEAL_MakeIdentity(nil, 0, 0)));
  ZulCheck(SEAL_MakeIdentity(PAnsiChar(Result), Length(Result), 0));
end;

function ZulRecipient(const Identity: RawByteString): UTF8String;
begin
  RefuseZero(Identity);
  SetLength(Result, ZulCheck(SEAL_Recipient(nil, 0, PAnsiChar(Identity))));
  ZulCheck(SEAL_Recipient(PAnsiChar(Result), Length(Result), PAnsiChar(Identity)));
end;

procedure ZulSealFile(const FileOut, FileIn: string; const Recipients: RawByteString; Options: Integer);
var
  Target, Source: RawByteString;
begin
  Target := Native(FileOut);
  Source := Native(FileIn);
  ZulCheckStatus(SEAL_File(PAnsiChar(Target), PAnsiChar(Source), OrNil(Recipients), nil, Options));
end;

procedure ZulSealFileWithPassword(const FileOut, FileIn: string; const Password: UTF8String; Options: Integer);
var
  Target, Source: RawByteString;
begin
  Target := Native(FileOut);
  Source := Native(FileIn);
  ZulCheckStatus(SEAL_File(PAnsiChar(Target), PAnsiChar(Source), nil, Utf8OrNil(Password), Options));
end;

procedure ZulOpenFile(const FileOut, FileIn: string; const Identities: RawByteString; Options: Integer);
var
  Target, Source: RawByteString;
begin
  Target := Native(FileOut);
  Source := Native(FileIn);
  ZulCheckStatus(SEAL_OpenFile(PAnsiChar(Target), PAnsiChar(Source), OrNil(Identities), nil, Options));
end;

procedure ZulOpenFileWithPassword(const FileOut, FileIn: string; const Password: UTF8String; Options: Integer);
var
  Target, Source: RawByteString;
begin
  Target := Native(FileOut);
  Source := Native(FileIn);
  ZulCheckStatus(SEAL_OpenFile(PAnsiChar(Target), PAnsiChar(Source), nil, Utf8OrNil(Password), Options));
end;

{ Certificates }

procedure ZulSelfSign(const CertOut: string; Key: TZulKey; const Description: UTF8String; Options: Integer);
var
  Target: RawByteString;
begin
  Target := Native(CertOut);
  ZulCheckStatus(CERT_SelfSign(PAnsiChar(Target), KeyHandle(Key), Utf8(Description), Options));
end;

procedure ZulRequest(const RequestOut: string; Key: TZulKey; const Description: UTF8String; Options: Integer);
var
  Target: RawByteString;
begin
  Target := Native(RequestOut);
  ZulCheckStatus(CERT_Request(PAnsiChar(Target), KeyHandle(Key), Utf8(Description), Options));
end;

procedure ZulIssue(const CertOut, IssuerCert: string; IssuerKey: TZulKey; const Request: string;
  const Description: UTF8String; Options: Integer);
var
  Target, Issuer, Asked: RawByteString;
begin
  Target := Native(CertOut);
  Issuer := Native(IssuerCert);
  Asked := Native(Request);
  ZulCheckStatus(CERT_Issue(PAnsiChar(Target), PAnsiChar(Issuer), KeyHandle(IssuerKey), PAnsiChar(Asked),
    Utf8OrNil(Description), Options));
end;

procedure ZulIssue(const CertOut, IssuerCert: string; IssuerKey, SubjectKey: TZulKey; const Description: UTF8String;
  Options: Integer);
var
  Target, Issuer: RawByteString;
begin
  Target := Native(CertOut);
  Issuer := Native(IssuerCert);
  ZulCheckStatus(CERT_Issue(PAnsiChar(Target), PAnsiChar(Issuer), KeyHandle(IssuerKey), KeyHandle(SubjectKey),
    Utf8OrNil(Description), Options));
end;

procedure ZulIssueCrl(const CrlOut, IssuerCert: string; IssuerKey: TZulKey;
  const Revoked, Description: UTF8String; const EarlierCrl: string; Options: Integer);
var
  Target, Issuer, Earlier: RawByteString;
begin
  Target := Native(CrlOut);
  Issuer := Native(IssuerCert);
  Earlier := Native(EarlierCrl);
  ZulCheckStatus(CERT_IssueCRL(PAnsiChar(Target), PAnsiChar(Issuer), KeyHandle(IssuerKey), OrNil(Earlier),
    Utf8OrNil(Revoked), Utf8OrNil(Description), Options));
end;

// A new folder that nobody else can enter.
function NewFolder: string;
begin
  Result := IncludeTrailingPathDelimiter({$IFDEF FPC}GetTempDir{$ELSE}TPath.GetTempPath{$ENDIF}) + 'zulcore' +
    string(ZulToHex(ZulRandomBytes(16)));
  if {$IFDEF UNIX}FpMkdir(Result, &700) <> 0{$ELSE}not CreateDir(Result){$ENDIF} then
    raise EZulError.CreateCode(CREATE_ERROR, 'no temporary folder');
  Result := IncludeTrailingPathDelimiter(Result);
end;

function TakeText(const FileName: string): UTF8String;
var
  Stream: TFileStream;
begin
  Stream := TFileStream.Create(FileName, fmOpenRead or fmShareDenyWrite);
  try
    SetLength(Result, Stream.Size);
    if Result <> '' then
      Stream.ReadBuffer(Result[1], Length(Result));
  finally
    Stream.Free;
  end;
end;

procedure RemoveFolder(const Folder: string);
begin
  {$IFDEF FPC}SysUtils{$ELSE}System.SysUtils{$ENDIF}.DeleteFile(Folder + 'output');
  RemoveDir(ExcludeTrailingPathDelimiter(Folder));
end;

function ZulSelfSignPem(Key: TZulKey; const Description: UTF8String): UTF8String;
var
  Folder: string;
begin
  Folder := NewFolder;
  try
    ZulSelfSign(Folder + 'output', Key, Description);
    Result := TakeText(Folder + 'output');
  finally
    RemoveFolder(Folder);
  end;
end;

function ZulRequestPem(Key: TZulKey; const Description: UTF8String): UTF8String;
var
  Folder: string;
begin
  Folder := NewFolder;
  try
    ZulRequest(Folder + 'output', Key, Description);
    Result := TakeText(Folder + 'output');
  finally
    RemoveFolder(Folder);
  end;
end;

function ZulIssuePem(const IssuerCert: string; IssuerKey: TZulKey; const Request: string;
  const Description: UTF8String): UTF8String;
var
  Folder: string;
begin
  Folder := NewFolder;
  try
    ZulIssue(Folder + 'output', IssuerCert, IssuerKey, Request, Description);
    Result := TakeText(Folder + 'output');
  finally
    RemoveFolder(Folder);
  end;
end;

function ZulIssuePem(const IssuerCert: string; IssuerKey, SubjectKey: TZulKey;
  const Description: UTF8String): UTF8String;
var
  Folder: string;
begin
  Folder := NewFolder;
  try
    ZulIssue(Folder + 'output', IssuerCert, IssuerKey, SubjectKey, Description);
    Result := TakeText(Folder + 'output');
  finally
    RemoveFolder(Folder);
  end;
end;

function ZulCertQuery(const Cert: string; const Query: UTF8String): UTF8String;
var
  Name: RawByteString;
begin
  Name := Native(Cert);
  SetLength(Result, ZulCheck(CERT_Query(nil, 0, PAnsiChar(Name), Utf8(Query), 0)));
  if Result <> '' then
    SetLength(Result, ZulCheck(CERT_Query(PAnsiChar(Result), Length(Result), PAnsiChar(Name), PAnsiChar(Query), 0)));
end;

function ZulCertReport(const Cert: string; Options: Integer): UTF8String;
var
  Name: RawByteString;
begin
  Name := Native(Cert);
  SetLength(Result, ZulCheck(CERT_Report(nil, 0, PAnsiChar(Name), Options)));
  if Result <> '' then
    SetLength(Result, ZulCheck(CERT_Report(PAnsiChar(Result), Length(Result), PAnsiChar(Name), Options)));
end;

procedure ZulCheckName(const Cert: string; const HostOrAddress: UTF8String; Options: Integer);
var
  Name: RawByteString;
begin
  Name := Native(Cert);
  ZulCheckStatus(CERT_CheckName(PAnsiChar(Name), Utf8(HostOrAddress), Options));
end;

procedure ZulCheckPath(const Cert, Trusted, Others, Evidence: string; const Conditions: UTF8String;
  out Report: UTF8String; Options: Integer);
var
  Name, Chain, Anchors, Proof: RawByteString;
  Room: UTF8String;
  Status, Count, Used: Integer;
  IsShort: Boolean;
begin
  Report := '';
  Name := Native(Cert);
  Chain := Native(Others);
  Anchors := Native(Trusted);
  Proof := Native(Evidence);
  Count := 1024 * 1024;
  repeat
    SetLength(Room, Count);
    Room[1] := #0;
    Status := CERT_CheckPath(PAnsiChar(Room), Count, PAnsiChar(Name), OrNil(Chain), PAnsiChar(Anchors), OrNil(Proof),
      Utf8OrNil(Conditions), Options);
    Used := TextLength(PAnsiChar(Room));
    // A text that fills so much of the room may have been cut.
    IsShort := (Status = SHORT_BUF_ERROR) or (Used > Count div 2);
    Count := Count * 8;
  until not IsShort or (Count > kLongestReport);
  Report := Copy(Room, 1, Used);
  ZulCheckStatus(Status);
end;

{ PKCS #12, messages, OCSP }

procedure ZulP12Pack(const FileOut, Certs: string; Key: TZulKey; const Password, FriendlyName: UTF8String;
  Options: Integer);
var
  Target, List: RawByteString;
  Secret: PAnsiChar;
begin
  Target := Native(FileOut);
  List := Native(Certs);
  Secret := nil;
  if Key <> nil then
    Secret := Key.Handle;
  ZulCheckStatus(P12_Pack(PAnsiChar(Target), OrNil(List), Secret, Utf8(Password), Utf8OrNil(FriendlyName), Options));
end;

function ZulP12List(const FileName: string; const Password: UTF8String; Options: Integer): UTF8String;
var
  Name: RawByteString;
begin
  Name := Native(FileName);
  SetLength(Result, ZulCheck(P12_List(nil, 0, PAnsiChar(Name), Utf8OrNil(Password), Options)));
  ZulCheck(P12_List(PAnsiChar(Result), Length(Result), PAnsiChar(Name), Utf8OrNil(Password), Options));
end;

procedure ZulCmsSign(const FileOut, FileIn, Certs: string; Key: TZulKey; Options: Integer);
var
  Target, Source, List: RawByteString;
begin
  Target := Native(FileOut);
  Source := Native(FileIn);
  List := Native(Certs);
  ZulCheckStatus(CMS_MakeSigData(PAnsiChar(Target), PAnsiChar(Source), PAnsiChar(List), KeyHandle(Key), Options));
end;

procedure ZulCmsVerify(const FileIn, SignerCert: string; const HexDigest: UTF8String);
var
  Source, Signer: RawByteString;
begin
  Source := Native(FileIn);
  Signer := Native(SignerCert);
  ZulCheckStatus(CMS_VerifySigData(PAnsiChar(Source), OrNil(Signer), Utf8OrNil(HexDigest), 0));
end;

procedure ZulCmsContent(const FileOut, FileIn: string);
var
  Target, Source: RawByteString;
begin
  Target := Native(FileOut);
  Source := Native(FileIn);
  ZulCheck(CMS_ReadSigData(PAnsiChar(Target), PAnsiChar(Source), 0));
end;

procedure ZulCmsEncrypt(const FileOut, FileIn: string; const RecipientCerts: array of string; Options: Integer);
const
  kMostRecipients = 10;
var
  Target, Source, List: RawByteString;
  I: Integer;
begin
  Target := Native(FileOut);
  Source := Native(FileIn);
  List := '';
  if Length(RecipientCerts) > kMostRecipients then
    raise EZulError.CreateCode(OUT_OF_RANGE_ERROR, 'more than 10 recipients');
  for I := 0 to High(RecipientCerts) do
  begin
    if Pos(';', RecipientCerts[I]) > 0 then
      raise EZulError.CreateCode(BAD_PARAM_ERROR, 'a semicolon in the name of a certificate');
    if I > 0 then
      List := List + ';';
    List := List + Native(RecipientCerts[I]);
  end;
  if ZulCheck(CMS_MakeEnvData(PAnsiChar(Target), PAnsiChar(Source), PAnsiChar(List), nil, 0, Options)) <>
    Length(RecipientCerts) then
    try
      Fail(BAD_KEY_ERROR);
    finally
      {$IFDEF FPC}SysUtils{$ELSE}System.SysUtils{$ENDIF}.DeleteFile(FileOut);
    end;
end;

procedure ZulCmsDecrypt(const FileOut, FileIn: string; Key: TZulKey; const RecipientCert: string);
var
  Target, Source, Cert: RawByteString;
begin
  Target := Native(FileOut);
  Source := Native(FileIn);
  Cert := Native(RecipientCert);
  ZulCheck(CMS_ReadEnvData(PAnsiChar(Target), PAnsiChar(Source), OrNil(Cert), KeyHandle(Key), 0));
end;

function ZulOcspRequest(const IssuerCert, CertOrSerial: string; Options: Integer): TBytes;
var
  Issuer, Asked: RawByteString;
  Text: UTF8String;
begin
  Issuer := Native(IssuerCert);
  Asked := Native(CertOrSerial);
  // The library does not negate this one code.
  if (Issuer = '') or (Asked = '') then
    raise EZulError.CreateCode(BAD_PARAM_ERROR, 'no issuer or certificate');
  SetLength(Text, ZulCheck(OCSP_MakeRequest(nil, 0, PAnsiChar(Issuer), PAnsiChar(Asked), nil, Options)));
  ZulCheck(OCSP_MakeRequest(PAnsiChar(Text), Length(Text), PAnsiChar(Issuer), PAnsiChar(Asked), nil, Options));
  Result := ZulFromBase64(Text);
end;

function ZulOcspRead(const Response, IssuerCert: string): UTF8String;
var
  Source, Issuer: RawByteString;
begin
  Source := Native(Response);
  Issuer := Native(IssuerCert);
  SetLength(Result, ZulCheck(OCSP_ReadResponse(nil, 0, PAnsiChar(Source), OrNil(Issuer), nil, 0)));
  ZulCheck(OCSP_ReadResponse(PAnsiChar(Result), Length(Result), PAnsiChar(Source), OrNil(Issuer), nil, 0));
end;

end.
