# bash completion for vxroi
_vxroi()
{
    COMPREPLY=()
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words=
    if [ "$COMP_CWORD" -eq 1 ]; then
        COMPREPLY=($(compgen -W 'crop batch map cluster report --help --version' -- "$word"))
        return
    fi
    case ${COMP_WORDS[1]}:$previous in
    crop:--if-exists) words='fail skip overwrite' ;;
    crop:--fit) words='crop pad' ;;
    crop:--frames) words='first all' ;;
    crop:--emit) words='geometry css focus' ;;
    crop:--format) words='jpg png webp tif avif heic jxl gif ppm pgm bmp' ;;
    crop:--chroma) words='auto 444 420' ;;
    crop:--metadata) words='keep copyright strip' ;;
    crop:--on-broken) words='error warn' ;;
    batch:--if-exists) words='fail skip overwrite' ;;
    batch:--fit) words='crop pad' ;;
    batch:--frames) words='first all' ;;
    batch:--format) words='jpg png webp tif avif heic jxl gif ppm pgm bmp' ;;
    batch:--chroma) words='auto 444 420' ;;
    batch:--metadata) words='keep copyright strip' ;;
    batch:--on-broken) words='error warn' ;;
    map:--if-exists) words='fail overwrite' ;;
    map:--on-broken) words='error warn' ;;
    cluster:--if-exists) words='fail overwrite' ;;
    cluster:--on-broken) words='error warn' ;;
    report:--if-exists) words='fail overwrite' ;;
    report:--on-broken) words='error warn' ;;
    esac
    if [ -z "$words" ] && [ "${word#-}" != "$word" ]; then
        case ${COMP_WORDS[1]} in
        crop) words='-h --help --ratio --size -o --output --keep --avoid --focus --map --if-exists --upscale --fit --frames --dry-run --json --emit --format --quality --chroma --progressive --metadata --to-srgb --background --preset --weight --tune --max-pixels --max-bytes --max-seconds --on-broken' ;;
        batch) words='-h --help -r --recursive --from -0 --null --allow-outside --ratio --size -o --output --keep --avoid --focus --map --if-exists --upscale --fit --frames --dry-run --resume --shard -j --jobs -q --quiet --format --quality --chroma --progressive --metadata --to-srgb --background --preset --weight --tune --max-pixels --max-bytes --max-seconds --on-broken' ;;
        map) words='-h --help -o --output --per-method --overlay --ratio --keep --avoid --map --stretch --if-exists --preset --weight --tune --max-pixels --max-bytes --max-seconds --on-broken' ;;
        cluster) words='-h --help --grid -o --output --if-exists --preset --weight --tune --max-pixels --max-bytes --max-seconds --on-broken' ;;
        report) words='-h --help -r --recursive --from -o --output --ratio --methods --if-exists --preset --weight --tune --max-pixels --max-bytes --max-seconds --on-broken' ;;
        esac
    fi
    [ -z "$words" ] || COMPREPLY=($(compgen -W "$words" -- "$word"))
}
complete -o default -F _vxroi vxroi
